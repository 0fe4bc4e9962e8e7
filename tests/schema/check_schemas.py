"""The tool's JSON Schemas, checked both ways with Python's jsonschema against real documents.

    check_schemas.py ORVANE SOURCE_DIR GENERATOR

- Every schema (`orvane schema TYPE`, with and without --document, in every date strategy) is
  a valid draft 2020-12 schema.
- Every document of the corpus and the examples, for each TYPE its case names and in the case's
  date strategy, is decoded by the tool without --import-source: one that decodes validates
  against `schema TYPE`; one that fails at a key (keyNotFound, valueNotFound, typeMismatch) does
  not; what `decode --document` writes of one that decodes validates against
  `schema TYPE --document`.
- The same for generated projects and snapshots.

Exits 77 (CTest's "skipped") when jsonschema is not installed.
"""

import json
import os
import subprocess
import sys
import tempfile

try:
    from jsonschema import Draft202012Validator
except ImportError:
    print("skipped: Python's jsonschema (Debian's python3-jsonschema) is not installed")
    sys.exit(77)

TOOL, SOURCE, GENERATOR = sys.argv[1:4]
STRATEGIES = ["iso8601", "seconds", "milliseconds", "deferred"]
KEY_FAILURES = {"keyNotFound", "valueNotFound", "typeMismatch"}

failures = []
_schemas = {}


def run(*args, stdin=None):
    return subprocess.run([TOOL, *args], input=stdin, capture_output=True)


def schema(type_name, dates, document):
    key = (type_name, dates, document)
    if key not in _schemas:
        args = ["schema", type_name, "--dates", dates] + (["--document"] if document else [])
        result = run(*args)
        if result.returncode != 0:
            raise SystemExit("orvane " + " ".join(args) + " failed: " + result.stderr.decode())
        _schemas[key] = Draft202012Validator(json.loads(result.stdout))
    return _schemas[key]


def first_error(validator, value):
    error = next(iter(validator.iter_errors(value)), None)
    if error is None:
        return None
    return "/".join(str(p) for p in error.absolute_path) + ": " + error.message[:200]


def case_documents(path):
    """(TYPE, dates, text) for each document of a case and each TYPE its arguments name."""
    args, texts, section = [], [], None
    with open(path, encoding="utf-8", errors="surrogateescape") as f:
        for line in f.read().splitlines():
            if line.startswith("--- "):
                is_document = line == "--- stdin" or line.startswith("--- file ")
                section = len(texts) if is_document else None
                if is_document:
                    texts.append("")
            elif section is not None:
                texts[section] += line + "\n"
            elif line.startswith("args:"):
                args = line[5:].split()
    dates = "iso8601"
    for i, arg in enumerate(args[:-1]):
        if arg == "--dates" and args[i + 1] in STRATEGIES:
            dates = args[i + 1]
    for type_name in [a for a in args if a in TYPES]:
        for text in texts:
            if text:
                yield type_name, dates, text


def check_document(where, type_name, dates, text):
    """Returns what the document showed: "decodes", "fails at a key", or "other"."""
    with tempfile.NamedTemporaryFile("wb", suffix=".json", delete=False) as f:
        f.write(text.encode("utf-8", errors="surrogateescape"))
        path = f.name
    try:
        status = run("check", type_name, path, "--json-errors", "--dates", dates)
        line = json.loads(status.stdout.decode().splitlines()[0])
        try:
            value = json.loads(text)
        except ValueError:
            return "other"  # not JSON Python reads; the decoder refuses it too
        if line.get("ok"):
            error = first_error(schema(type_name, dates, False), value)
            if error:
                failures.append(f"{where} as {type_name}: decodes but does not validate: {error}")
            written = run("decode", type_name, path, "--document", "--dates", dates)
            if written.returncode != 0:
                failures.append(f"{where} as {type_name}: no document form: {written.stderr}")
                return "decodes"
            error = first_error(schema(type_name, dates, True), json.loads(written.stdout))
            if error:
                failures.append(f"{where} as {type_name}: its document form does not validate "
                                f"against the document schema: {error}")
            return "decodes"
        kind = line.get("error", {}).get("kind")
        if kind in KEY_FAILURES:
            if schema(type_name, dates, False).is_valid(value):
                failures.append(f"{where} as {type_name}: fails with {kind} at "
                                f"{line['error']['codingPath']} but validates")
            return "fails at a key"
        return "other"
    finally:
        os.unlink(path)


TYPES = set(run("types").stdout.decode().split())

for type_name in sorted(TYPES):
    for dates in STRATEGIES:
        for document in (False, True):
            Draft202012Validator.check_schema(schema(type_name, dates, document).schema)

counts = {"decodes": 0, "fails at a key": 0, "other": 0}
corpus = os.path.join(SOURCE, "tests", "corpus")
for folder in sorted(os.listdir(corpus)):
    directory = os.path.join(corpus, folder)
    if not os.path.isdir(directory):
        continue
    for name in sorted(os.listdir(directory)):
        if name.endswith(".case"):
            for type_name, dates, text in case_documents(os.path.join(directory, name)):
                counts[check_document(f"{folder}/{name}", type_name, dates, text)] += 1

examples = [("project.json", "Project"), ("snapshot.json", "Snapshot"),
            ("trail-list.json", "Snapshot"), ("border.json", "Border")]
for name, type_name in examples:
    with open(os.path.join(SOURCE, "examples", name), encoding="utf-8") as f:
        counts[check_document("examples/" + name, type_name, "iso8601", f.read())] += 1

for kind, type_name in [("project", "Project"), ("snapshots", "Snapshot")]:
    for seed in ("1", "2"):
        text = subprocess.run([GENERATOR, kind, "0.3", seed], capture_output=True,
                              check=True).stdout.decode()
        if kind == "snapshots":
            # An array of snapshots: each one is a Snapshot document.
            for i, snapshot in enumerate(json.loads(text)[:3]):
                counts[check_document(f"generated {kind} {seed}[{i}]", type_name, "iso8601",
                                      json.dumps(snapshot))] += 1
        else:
            counts[check_document(f"generated {kind} {seed}", type_name, "iso8601", text)] += 1

print(f"{len(TYPES)} TYPEs, every schema valid; documents: {counts}")
if counts["decodes"] < 150 or counts["fails at a key"] < 40:
    failures.append(f"too few documents to say anything: {counts}")
for failure in failures:
    print("FAIL " + failure)
sys.exit(1 if failures else 0)
