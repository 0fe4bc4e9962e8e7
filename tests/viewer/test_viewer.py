"""The hand-off viewer, tried as a person uses it and as a hostile client pokes at it.

Run by CTest with Debian's Python: `python3 test_viewer.py TOOL`. The server's refusals need no
browser; the page is driven in Chromium through chromedriver, and each thing it shows is held
against the tool's own output for the same document. Without Chromium, chromedriver or Selenium
the browser tests report themselves skipped."""

import http.client
import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import urllib.parse

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import documents  # noqa: E402

TOOL = None


def tool(*args, stdin=None):
    """The tool's standard output for `args` (and its exit status)."""
    r = subprocess.run([TOOL] + list(args), capture_output=True, text=True, input=stdin, timeout=60)
    return r.stdout, r.returncode


class Server:
    """`orvane serve` in the background, with its address."""

    def __init__(self, kind, path, *extra):
        self.process = subprocess.Popen([TOOL, "serve", kind, path] + list(extra), stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        line = self.process.stdout.readline()
        self.line = line
        address = line.rsplit(" at ", 1)[-1].strip()
        parts = urllib.parse.urlsplit(address)
        self.address = address
        self.port = parts.port
        self.token = urllib.parse.parse_qs(parts.query).get("token", [""])[0]

    def request(self, method, path, headers=None, host=None, token=True):
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=10)
        if token:
            path += ("&" if "?" in path else "?") + "token=" + self.token
        all_headers = {"Host": host or "127.0.0.1:%d" % self.port}
        all_headers.update(headers or {})
        connection.request(method, path, headers=all_headers)
        response = connection.getresponse()
        body = response.read()
        connection.close()
        return response, body

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        try:
            return self.process.wait(timeout=10)
        finally:
            self.process.stdout.close()
            self.process.stderr.close()


def raw(port, data, timeout=10, half_close=True):
    """What the server answers to the bytes `data`, as they are; with `half_close`, the client
    says at once that nothing more follows."""
    s = socket.create_connection(("127.0.0.1", port), timeout=timeout)
    try:
        s.sendall(data)
        if half_close:
            s.shutdown(socket.SHUT_WR)
        out = b""
        while True:
            try:
                chunk = s.recv(65536)
            except socket.timeout:
                break
            if not chunk:
                break
            out += chunk
        return out
    finally:
        s.close()


SECURITY_HEADERS = ["Content-Security-Policy", "X-Content-Type-Options", "Referrer-Policy", "Cache-Control"]


class ServerRefusals(unittest.TestCase):
    """What `serve` must refuse, and that it keeps serving whatever it is sent."""

    @classmethod
    def setUpClass(cls):
        cls.dir = tempfile.mkdtemp(prefix="orvane-viewer-")
        cls.file = os.path.join(cls.dir, "project.json")
        documents.write(cls.file, documents.project())
        cls.server = Server("Project", cls.file)

    @classmethod
    def tearDownClass(cls):
        cls.server.stop()
        shutil.rmtree(cls.dir, ignore_errors=True)

    def test_the_printed_line_names_file_address_and_a_long_token(self):
        self.assertRegex(self.server.line, r"^Serving .*project\.json at http://127\.0\.0\.1:\d+/\?token=[0-9a-f]{32,}\n$")

    def test_token_host_method_and_path_are_checked(self):
        s = self.server
        cases = [
            ("no token", dict(method="GET", path="/", token=False), 403),
            ("a wrong token", dict(method="GET", path="/?token=" + "0" * 32, token=False), 403),
            ("another host", dict(method="GET", path="/", host="evil.example:%d" % s.port), 403),
            ("another port", dict(method="GET", path="/", host="127.0.0.1:1"), 403),
            ("POST", dict(method="POST", path="/"), 405),
            ("DELETE", dict(method="DELETE", path="/api/state"), 405),
            ("an unknown path", dict(method="GET", path="/etc/passwd"), 404),
            ("a data file the document lacks", dict(method="GET", path="/data/v99.js"), 404),
            ("the page", dict(method="GET", path="/"), 200),
            ("localhost", dict(method="GET", path="/viewer.js", host="localhost:%d" % s.port), 200),
            ("HEAD", dict(method="HEAD", path="/viewer.css"), 200),
        ]
        for name, args, status in cases:
            with self.subTest(name):
                response, body = s.request(**args)
                self.assertEqual(response.status, status)
                for h in SECURITY_HEADERS:
                    self.assertTrue(response.getheader(h), h + " missing")
                self.assertIn("frame-ancestors 'self'", response.getheader("Content-Security-Policy"))
                if status >= 400:
                    self.assertEqual(body, b"")

    def test_a_path_that_climbs_is_not_found(self):
        for path in ["/../index.html", "/data/../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "/thumbs/..%2fv0.svg"]:
            with self.subTest(path):
                answer = raw(self.server.port, ("GET %s?token=%s HTTP/1.1\r\nHost: 127.0.0.1:%d\r\nConnection: close\r\n\r\n"
                                                % (path, self.server.token, self.server.port)).encode(), half_close=False)
                self.assertTrue(answer.startswith(b"HTTP/1.1 404") or answer.startswith(b"HTTP/1.1 400"), answer[:40])
                self.assertNotIn(b"root:", answer)

    def test_headers_beyond_8_kib_are_refused(self):
        s = self.server
        one, _ = s.request("GET", "/", headers={"X-Long": "a" * 9000})
        split, _ = s.request("GET", "/", headers={"X-A": "a" * 5000, "X-B": "b" * 5000})
        self.assertIn(one.status, (400, 431))
        self.assertEqual(split.status, 431)

    def test_the_token_may_travel_in_its_cookie(self):
        response, _ = self.server.request("GET", "/")
        cookie = response.getheader("Set-Cookie")
        self.assertIn("HttpOnly", cookie)
        self.assertIn("SameSite=Strict", cookie)
        again, _ = self.server.request("GET", "/data/index.js", headers={"Cookie": cookie.split(";")[0]}, token=False)
        self.assertEqual(again.status, 200)

    def test_malformed_requests_do_not_stop_it(self):
        junk = [b"\x00\xff" * 50, b"GET\r\n\r\n", b"GET / HTTP/9.9\r\n\r\n", b"HELLO\r\n\r\n",
                b"GET / HTTP/1.1\r\nHost\r\n\r\n", b"\r\n" * 40, b"GET /" + b"a" * 10000 + b" HTTP/1.1\r\n\r\n"]
        for i in range(100):
            raw(self.server.port, junk[i % len(junk)], timeout=3)
        response, _ = self.server.request("GET", "/api/state")
        self.assertEqual(response.status, 200)

    def test_fifty_requests_at_once(self):
        results = []
        def one():
            response, _ = self.server.request("GET", "/data/v0.js")
            results.append(response.status)
        threads = [threading.Thread(target=one) for _ in range(50)]
        for t in threads:
            t.start()
        for t in threads:
            t.join(30)
        self.assertEqual(results, [200] * 50)

    def test_a_silent_client_is_dropped_and_keeps_nobody_waiting(self):
        silent = socket.create_connection(("127.0.0.1", self.server.port))
        started = time.time()
        response, _ = self.server.request("GET", "/api/state")
        self.assertEqual(response.status, 200)
        self.assertLess(time.time() - started, 2)
        silent.settimeout(15)
        self.assertEqual(silent.recv(10), b"")
        self.assertLess(time.time() - started, 10.5)
        silent.close()

    def test_a_document_that_does_not_decode_at_start(self):
        bad = os.path.join(self.dir, "bad.json")
        with open(bad, "w") as f:
            f.write('{"_id":"p"')
        r = subprocess.run([TOOL, "serve", "Project", bad], capture_output=True, text=True, timeout=20)
        self.assertEqual(r.returncode, 1)
        self.assertEqual(r.stdout, "")
        self.assertTrue(r.stderr.startswith("error: dataCorrupted"), r.stderr)

    def test_it_ends_with_status_0_on_sigint(self):
        other = Server("Project", self.file)
        other.process.send_signal(signal.SIGINT)
        self.assertEqual(other.process.wait(timeout=10), 0)
        other.process.stdout.close()
        other.process.stderr.close()


# --- In a browser -----------------------------------------------------------------------------------

def browser():
    """A headless Chromium under chromedriver, or the reason there is none."""
    try:
        from selenium import webdriver
        from selenium.webdriver.chrome.service import Service
    except ImportError:
        return None, "Selenium is not installed"
    binary = os.environ.get("ORVANE_CHROMIUM") or shutil.which("chromium") or shutil.which("chromium-browser")
    driver = shutil.which("chromedriver")
    if not binary or not driver:
        return None, "chromium or chromedriver is not installed"
    options = webdriver.ChromeOptions()
    options.binary_location = binary
    profile = tempfile.mkdtemp(prefix="orvane-chrome-")
    for flag in ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                 "--disable-background-networking", "--disable-component-update", "--no-first-run",
                 "--disable-sync", "--window-size=1400,900", "--user-data-dir=" + profile,
                 "--allow-file-access-from-files"]:
        options.add_argument(flag)
    return webdriver.Chrome(service=Service(driver), options=options), profile


def fmt(n):
    """A number as the page and the tool write one."""
    s = ("%.4f" % round(n, 4)).rstrip("0").rstrip(".")
    return "0" if s in ("-0", "") else s


class Page:
    """Finding things on the page by the attributes the contract names."""

    def __init__(self, driver):
        self.d = driver

    def one(self, css, wait=5):
        from selenium.webdriver.common.by import By
        end = time.time() + wait
        while True:
            found = self.d.find_elements(By.CSS_SELECTOR, css)
            if found:
                return found[0]
            if time.time() > end:
                raise AssertionError("nothing matches " + css + " at " + self.d.current_url)
            time.sleep(0.05)

    def all(self, css):
        from selenium.webdriver.common.by import By
        return self.d.find_elements(By.CSS_SELECTOR, css)

    def until(self, condition, wait=5, what="the page to change"):
        end = time.time() + wait
        while time.time() < end:
            try:
                value = condition()
                if value:
                    return value
            except Exception:  # the page may be between two states
                pass
            time.sleep(0.05)
        raise AssertionError("waited in vain for " + what)

    def text(self, css):
        return self.d.execute_script("var n = document.querySelector(arguments[0]); return n ? n.textContent : null;", css)

    def number(self, css):
        t = self.text(css)
        return None if t is None else float(t.split()[0].rstrip("°"))

    def choose(self, css, value):
        self.d.execute_script(
            "var s = document.querySelector(arguments[0]); s.value = arguments[1]; s.dispatchEvent(new Event('change'));", css, value)

    def hover(self, css):
        from selenium.webdriver.common.action_chains import ActionChains
        ActionChains(self.d).move_to_element(self.one(css)).perform()


class ViewerTestCase(unittest.TestCase):
    driver = None
    profile = None

    @classmethod
    def startBrowser(cls):
        cls.driver, cls.profile = browser()
        if cls.driver is None:
            raise unittest.SkipTest(cls.profile)
        cls.page = Page(cls.driver)

    @classmethod
    def stopBrowser(cls):
        if cls.driver:
            cls.driver.quit()
        if cls.profile:
            shutil.rmtree(cls.profile, ignore_errors=True)

    def layer_facts(self, screen, layer, version=None):
        args = ["inspect", "Project", self.file, "--screen", screen, "--json"]
        if version:
            args += ["--version-id", version]
        tree = json.loads(tool(*args)[0])
        def walk(layers):
            for l in layers:
                if l["identifier"] == layer:
                    return l
                found = walk(l.get("layers") or [])
                if found:
                    return found
        return walk(tree["layers"])

    def open(self, fragment):
        self.driver.get(self.base + fragment)
        # A new address with only another fragment does not load the page again.
        self.driver.refresh()


class ServedViewer(ViewerTestCase):
    """The eleven things a person does in the viewer `serve` shows."""

    @classmethod
    def setUpClass(cls):
        cls.startBrowser()
        cls.dir = tempfile.mkdtemp(prefix="orvane-viewer-")
        cls.file = os.path.join(cls.dir, "project.json")
        cls.document = documents.project()
        documents.write(cls.file, cls.document)
        cls.server = Server("Project", cls.file)
        cls.base = cls.server.address

    @classmethod
    def tearDownClass(cls):
        cls.stopBrowser()
        cls.server.stop()
        shutil.rmtree(cls.dir, ignore_errors=True)

    def test_1_the_project_page(self):
        p = self.page
        self.open("")
        p.one("[data-screen]")
        inspect = json.loads(tool("inspect", "Project", self.file, "--json")[0])
        order = [s["identifier"] for section in inspect["sections"] for s in section["screens"]] + \
                [s["identifier"] for s in inspect["screens"]]
        self.assertEqual([e.get_attribute("data-screen") for e in p.all("[data-screen]")], order)
        self.assertEqual([e.get_attribute("data-component") for e in p.all("[data-component]")], ["cmp-button"])
        self.assertEqual(len(p.all("[data-color]")), 2)
        self.assertEqual(len(p.all("[data-text-style]")), 1)
        self.assertEqual(len(p.all("[data-member]")), 2)
        for fmt_name in ["dtcg", "css", "swift", "kotlin"]:
            with self.subTest(fmt_name):
                href = p.one('a[data-tokens="%s"]' % fmt_name).get_attribute("href")
                path = urllib.parse.urlsplit(href).path
                response, body = self.server.request("GET", path)
                self.assertEqual(response.status, 200)
                self.assertEqual(body.decode(), tool("tokens", fmt_name, self.file)[0])

    def test_2_a_screen_drawn_as_render_draws_it(self):
        p = self.page
        self.open("#screen=home")
        canvas = p.one("[data-canvas]")
        self.assertEqual(canvas.get_attribute("data-screen"), "home")
        self.assertEqual(canvas.get_attribute("data-version"), "home-2")
        svg = tool("render", "Project", self.file, "--screen", "home")[0]
        drawn = self.driver.execute_script(
            "return Array.from(document.querySelectorAll('[data-canvas] > svg [data-layer]')).map(function (n) { return n.getAttribute('data-layer'); });")
        self.assertEqual(drawn, [part.split('"')[0] for part in svg.split('data-layer="')[1:]])
        options = [o.get_attribute("value") for o in p.all("select[data-version] option")]
        self.assertEqual(options, ["home-2", "home-1"])
        rows = [r.get_attribute("data-tree-layer") for r in p.all("[data-tree-layer]")]
        self.assertEqual(rows, ["title", "card", "photo", "name", "icon", "button", "badge"])
        for overlay in ["links", "grid", "assets"]:
            button = p.one('[data-overlay="%s"]' % overlay)
            self.assertEqual(button.get_attribute("aria-pressed"), "false")
            button.click()
            self.assertEqual(button.get_attribute("aria-pressed"), "true")
            button.click()
        p.one('[data-zoom="100"]').click()
        self.assertEqual(p.one(".zoomed").get_attribute("data-zoom-level"), "1")

    def test_3_a_layer_selected_on_the_canvas_or_in_the_tree(self):
        p = self.page
        self.open("#screen=home")
        p.one('[data-canvas] [data-layer="button"]').click()
        p.until(lambda: p.one("[data-inspector]").get_attribute("data-layer") == "button", what="the button's properties")
        facts = self.layer_facts("home", "button")
        unit = p.one("select[data-units]").get_attribute("value")
        self.assertEqual(unit, "dp")  # an Android project
        for fact, value in [("x", facts["absoluteFrame"]["x"]), ("width", facts["absoluteFrame"]["width"]),
                            ("cornerRadius", facts["cornerRadius"]), ("opacity", facts["opacity"])]:
            self.assertEqual(p.number("[data-spec=\"%s\"]" % fact), value, fact)
        p.one('[data-tree-layer="title"]').click()
        p.until(lambda: p.one("[data-inspector]").get_attribute("data-layer") == "title")
        title = self.layer_facts("home", "title")["textStyles"][0]
        self.assertEqual(p.number('[data-spec="fontSize"]'), title["fontSize"])
        self.assertEqual(p.number('[data-spec="lineHeight"]'), title["lineHeight"])
        for lang in ["css", "swiftui", "compose"]:
            expected = tool("code", lang, "Project", self.file, "--screen", "home", "--layer", "title")[0]
            p.until(lambda: p.text('[data-code="%s"]' % lang) == expected, what=lang + " code")
        search = p.one("[data-search]")
        search.send_keys("badg")
        visible = [r.get_attribute("data-tree-layer") for r in p.all("[data-tree-layer]") if r.is_displayed()]
        self.assertEqual(visible, ["badge"])

    def test_4_units_and_the_design_scale(self):
        p = self.page
        self.open("#screen=home&layer=card")
        p.one('[data-inspector][data-layer="card"]')
        frame = self.layer_facts("home", "card")["absoluteFrame"]
        p.choose("select[data-units]", "rem")
        p.choose("select[data-scale]", "2x")
        p.until(lambda: p.number('[data-spec="width"]') == float(fmt(frame["width"] / 2 / 16)), what="rem at 2x")
        self.assertEqual(p.number('[data-spec="y"]'), float(fmt(frame["y"] / 2 / 16)))
        expected = tool("code", "compose", "Project", self.file, "--screen", "home", "--layer", "card", "--density", "2x")[0]
        p.until(lambda: p.text('[data-code="compose"]') == expected, what="the code at 2x")
        p.choose("select[data-units]", "px")
        p.choose("select[data-scale]", "1x")
        self.assertEqual(p.number('[data-spec="width"]'), frame["width"])

    def test_5_redlines_equal_measure(self):
        p = self.page
        self.open("#screen=home&layer=title")
        p.one('[data-inspector][data-layer="title"]')
        for other in ["badge", "button"]:
            with self.subTest(other):
                p.hover('[data-canvas] [data-layer="%s"]' % other)
                red = p.one('[data-redlines][data-b="%s"]' % other)
                expected = json.loads(tool("measure", "Project", self.file, "title", other, "--screen", "home", "--json")[0])
                self.assertEqual(red.get_attribute("data-relation"), expected["relation"])
                for key in ["horizontal", "vertical", "top", "right", "bottom", "left", "width", "height"]:
                    if key in expected:
                        self.assertEqual(p.number('[data-redlines] [data-measure="%s"]' % key), expected[key], key)
        p.choose("select[data-units]", "rem")
        p.hover('[data-canvas] [data-layer="button"]')
        expected = json.loads(tool("measure", "Project", self.file, "title", "button", "--screen", "home", "--json")[0])
        self.assertEqual(p.number('[data-redlines] [data-measure="vertical"]'), float(fmt(expected["vertical"] / 16)))
        p.choose("select[data-units]", "dp")
        # The empty artboard: the selected layer's distances to its edges.
        # The artboard's middle, which no layer of the screen covers.
        p.hover("[data-canvas] > svg")
        red = p.one('[data-redlines][data-relation="artboard"]')
        one = json.loads(tool("measure", "Project", self.file, "title", "--screen", "home", "--json")[0])["artboard"]
        for key in ["top", "right", "bottom", "left"]:
            self.assertEqual(p.number('[data-redlines] [data-measure="%s"]' % key), one[key], key)

    def test_6_compare_marks_what_diff_reports(self):
        p = self.page
        self.open("#screen=home")
        p.one("[data-canvas]")
        options = [o.get_attribute("value") for o in p.all("select[data-compare] option")]
        self.assertEqual(options, ["", "home-1"])
        p.choose("select[data-compare]", "home-1")
        p.until(lambda: p.all("[data-change]"), what="the compare marks")
        diff = json.loads(tool("diff", "Project", self.file, "--screen", "home", "--from", "home-1", "--to", "home-2", "--json")[0])
        for kind in ["added", "removed", "changed"]:
            expected = sorted((c["layer"] if kind == "changed" else c)["sourceIdentifier"] for c in diff[kind])
            seen = sorted(m.get_attribute("data-source") for m in p.all('[data-change="%s"]' % kind))
            self.assertEqual(seen, expected, kind)
        self.assertIn("compare=home-1", self.driver.current_url)

    def test_7_comments_on_their_pins(self):
        p = self.page
        self.open("#screen=home")
        pins = p.all("[data-dot]")
        self.assertEqual([d.get_attribute("data-dot") for d in pins], ["dot-1"])
        pins[0].click()
        comments = p.one('[data-comments="dot-1"]')
        self.assertIn("Is 24 too big?", comments.text)
        self.assertIn("ana", comments.text)
        self.assertIn("2026-02-12", comments.text)

    def test_8_a_hotspot_leads_to_its_screen_and_back(self):
        p = self.page
        self.open("#screen=home")
        p.one('[data-overlay="links"]').click()
        link = json.loads(tool("inspect", "Project", self.file, "--screen", "home", "--json")[0])["links"][0]
        p.one('[data-canvas] [data-link="0"]').click()
        p.until(lambda: p.one("[data-canvas]").get_attribute("data-screen") == link["screen"], what="the linked screen")
        self.driver.back()
        p.until(lambda: p.one("[data-canvas]").get_attribute("data-screen") == "home", what="the way back")

    def test_9_assets_with_their_file_names(self):
        p = self.page
        self.open("#screen=home")
        listing = p.one("[data-assets-list]").text
        assets = json.loads(tool("assets", "Project", self.file, "--screen", "home", "--json")[0])
        for item in assets["assets"] + assets["layers"]:
            for platform in ["ios", "android", "web"]:
                for f in item[platform]:
                    self.assertIn(f["file"], listing)

    def test_10_a_shared_address_shows_the_same(self):
        p = self.page
        self.open("#screen=home&version=home-1&layer=banner")
        p.one('[data-inspector][data-layer="banner"]')
        address = self.driver.current_url
        self.driver.switch_to.new_window("tab")
        self.driver.get(address)
        p.one('[data-inspector][data-layer="banner"]')
        self.assertEqual(p.one("[data-canvas]").get_attribute("data-version"), "home-1")
        self.driver.close()
        self.driver.switch_to.window(self.driver.window_handles[0])
        # Back and forward walk the selections.
        self.open("#screen=home")
        p.one('[data-tree-layer="title"]').click()
        p.one('[data-tree-layer="card"]').click()
        p.until(lambda: p.one("[data-inspector]").get_attribute("data-layer") == "card")
        self.driver.back()
        p.until(lambda: p.one("[data-inspector]").get_attribute("data-layer") == "title", what="back")
        self.driver.forward()
        p.until(lambda: p.one("[data-inspector]").get_attribute("data-layer") == "card", what="forward")

    def test_11_live_changes_and_a_broken_file(self):
        p = self.page
        self.open("#screen=home&layer=title")
        p.one('[data-inspector][data-layer="title"]')
        documents.write(self.file, documents.renamed(self.document, "title", "Greeting"))
        started = time.time()
        p.until(lambda: "Greeting" in p.one("[data-inspector] h2").text, wait=4, what="the new name")
        self.assertLess(time.time() - started, 2.5)
        self.assertEqual(p.one("[data-inspector]").get_attribute("data-layer"), "title")
        with open(self.file, "w") as f:
            f.write('{"_id": "prj",\n "name": ')
        error = p.until(lambda: p.one("[data-error]", wait=0.1), wait=4, what="the error")
        self.assertEqual(error.get_attribute("data-line"), "2")
        self.assertTrue(error.get_attribute("data-column"))
        self.assertIn("Greeting", p.one("[data-inspector] h2").text)
        documents.write(self.file, self.document)
        p.until(lambda: not p.all("[data-error]") and "Title" in p.one("[data-inspector] h2").text, wait=4, what="the repair")


class ServedFolder(ViewerTestCase):
    """A folder of documents: each listed, those that do not decode with their error."""

    @classmethod
    def setUpClass(cls):
        cls.startBrowser()
        cls.dir = tempfile.mkdtemp(prefix="orvane-folder-")
        cls.file = os.path.join(cls.dir, "a-project.json")
        documents.write(cls.file, documents.project())
        with open(os.path.join(cls.dir, "b-broken.json"), "w") as f:
            f.write('{"_id": "p", "name": 3}')
        cls.server = Server("Project", cls.dir)
        cls.base = cls.server.address

    @classmethod
    def tearDownClass(cls):
        cls.stopBrowser()
        cls.server.stop()
        shutil.rmtree(cls.dir, ignore_errors=True)

    def test_the_listing_opens_each_document(self):
        p = self.page
        self.open("")
        entries = p.all("[data-document]")
        self.assertEqual([e.text for e in entries], ["a-project.json"])
        self.assertIn("b-broken.json", p.one(".folder").text)
        self.assertIn(tool("check", "Project", os.path.join(self.dir, "b-broken.json"))[0].split(": ", 1)[1].strip(),
                      p.one(".folder .bad").text)
        entries[0].click()
        p.one('[data-screen="home"]').click()
        p.until(lambda: p.one("[data-canvas]").get_attribute("data-screen") == "home", what="the screen")


class StaticSite(ViewerTestCase):
    """`site`, opened from disk: the same page without a server."""

    @classmethod
    def setUpClass(cls):
        cls.startBrowser()
        cls.dir = tempfile.mkdtemp(prefix="orvane-site-")
        cls.file = os.path.join(cls.dir, "project.json")
        documents.write(cls.file, documents.project())
        out, status = tool("site", "Project", cls.file, "--output", os.path.join(cls.dir, "site"))
        assert status == 0, out
        cls.base = "file://" + os.path.join(cls.dir, "site", "index.html")

    @classmethod
    def tearDownClass(cls):
        cls.stopBrowser()
        shutil.rmtree(cls.dir, ignore_errors=True)

    def test_the_project_a_screen_a_layer_and_a_comparison(self):
        p = self.page
        self.open("")
        self.assertEqual(len(p.all("[data-screen]")), 3)
        self.open("#screen=home&layer=card")
        p.one('[data-inspector][data-layer="card"]')
        expected = tool("code", "css", "Project", self.file, "--screen", "home", "--layer", "card")[0]
        p.until(lambda: p.text('[data-code="css"]') == expected, what="the code at 1x")
        p.choose("select[data-scale]", "2x")
        self.assertIn("1x", p.text("[data-code-note]"))
        p.choose("select[data-compare]", "home-1")
        p.until(lambda: p.all('[data-change="removed"]'), what="the compare marks")
        self.open("")
        href = p.one('a[data-tokens="dtcg"]').get_attribute("href")
        with open(urllib.parse.unquote(urllib.parse.urlsplit(href).path)) as f:
            self.assertEqual(f.read(), tool("tokens", "dtcg", self.file)[0])
        # Nothing of another origin: every resource the page loaded is a file of the site.
        origins = self.driver.execute_script(
            "return performance.getEntriesByType('resource').map(function (e) { return e.name.split(':')[0]; });")
        self.assertEqual(set(origins) - {"file"}, set())


if __name__ == "__main__":
    TOOL = os.path.abspath(sys.argv.pop(1))
    # The rest names the test classes to run. When every test was skipped (no browser here), the
    # exit status says so to CTest (77), which reports the test skipped, not passed.
    program = unittest.main(verbosity=2, exit=False)
    result = program.result
    if not result.wasSuccessful():
        sys.exit(1)
    if result.testsRun and len(result.skipped) == result.testsRun:
        sys.exit(77)
