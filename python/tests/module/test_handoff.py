"""Every hand-off function against the tool's output for the same document and options."""
import json

import pytest

import orvane
from toolrun import SOURCE, run_tool

PROJECT = SOURCE / "examples" / "project.json"
SNAPSHOT = SOURCE / "examples" / "snapshot.json"
TRAILS = ["--screen", "scr-trails"]


def project():
    return orvane.load("Project", PROJECT)


def snapshot():
    return orvane.load("Snapshot", SNAPSHOT)


# (the tool's arguments, what Python calls, whether the output is JSON)
CASES = [
    (["render", "Snapshot", SNAPSHOT], lambda: orvane.render(snapshot()), False),
    (["render", "Project", PROJECT, *TRAILS, "--links", "--grid", "--assets"],
     lambda: orvane.render(project(), screen="scr-trails", links=True, grid=True, assets=True), False),
    (["render", "Project", PROJECT, *TRAILS, "--version-id", "v-trails-1"],
     lambda: orvane.render(project(), screen="scr-trails", version_id="v-trails-1"), False),
    (["code", "css", "Snapshot", SNAPSHOT, "--layer", "Pay button"],
     lambda: orvane.code("css", snapshot(), layer="Pay button"), False),
    (["code", "swiftui", "Project", PROJECT, *TRAILS, "--layer", "Card/Trail name", "--density", "2x"],
     lambda: orvane.code("swiftui", project(), layer="Card/Trail name", screen="scr-trails",
                         density="2x"), False),
    (["code", "compose", "Project", PROJECT, *TRAILS],
     lambda: orvane.code("compose", project(), screen="scr-trails"), False),
    (["code", "css", "Snapshot", SNAPSHOT], lambda: orvane.code("css", snapshot()), False),
    (["tokens", "dtcg", PROJECT, "--pretty"], lambda: orvane.tokens("dtcg", project(), pretty=True), False),
    (["tokens", "css", PROJECT], lambda: orvane.tokens("css", project()), False),
    (["tokens", "kotlin", PROJECT, "--density", "3x"],
     lambda: orvane.tokens("kotlin", project(), density=orvane.Density._3x), False),
    (["inspect", "Project", PROJECT], lambda: orvane.inspect(project()), False),
    (["inspect", "Project", PROJECT, "--json"], lambda: orvane.inspect(project(), json=True), True),
    (["inspect", "Snapshot", SNAPSHOT, "--json", "--density", "3x"],
     lambda: orvane.inspect(snapshot(), json=True, density="3x"), True),
    (["inspect", "Project", PROJECT, *TRAILS],
     lambda: orvane.inspect(project(), screen="scr-trails"), False),
    (["assets", "Snapshot", SNAPSHOT], lambda: orvane.assets(snapshot()), False),
    (["assets", "Snapshot", SNAPSHOT, "--json"], lambda: orvane.assets(snapshot(), json=True), True),
    (["measure", "Snapshot", SNAPSHOT, "l2", "l4", "--json"],
     lambda: orvane.measure(snapshot(), "l2", "l4", json=True), True),
    (["measure", "Snapshot", SNAPSHOT, "Pay", "Pay button"],
     lambda: orvane.measure(snapshot(), "Pay", "Pay button"), False),
    (["measure", "Project", PROJECT, "Photo", *TRAILS, "--json", "--density", "2x"],
     lambda: orvane.measure(project(), "Photo", screen="scr-trails", json=True, density="2x"), True),
    (["diff", "Project", PROJECT, *TRAILS, "--from", "v-trails-1", "--to", "v-trails-2"],
     lambda: orvane.diff(project(), screen="scr-trails", from_="v-trails-1", to="v-trails-2"), False),
    (["diff", "Project", PROJECT, *TRAILS, "--from", "v-trails-1", "--to", "v-trails-2", "--json"],
     lambda: orvane.diff(project(), screen="scr-trails", from_="v-trails-1", to="v-trails-2",
                         json=True), True),
    (["diff", "Snapshot", SNAPSHOT, SNAPSHOT, "--json"],
     lambda: orvane.diff(snapshot(), snapshot(), json=True), True),
]


@pytest.mark.parametrize("args,call,is_json", CASES, ids=lambda v: " ".join(map(str, v))[:60]
                         if isinstance(v, list) else None)
def test_same_as_the_tool(args, call, is_json):
    status, out, err = run_tool(*args)
    assert status in (0, 1), err  # diff: 1 when something changed
    result = call()
    if is_json:
        assert result == json.loads(out)
    else:
        assert result == out


@pytest.mark.parametrize("call,error,message", [
    (lambda: orvane.render(project()), ValueError, "exactly one of screen and component"),
    (lambda: orvane.render(project(), screen="nope"), KeyError, "no screen with identifier nope"),
    (lambda: orvane.render(project(), screen="scr-trails", version_id="v-x"), KeyError,
     "no version with identifier v-x in scr-trails"),
    (lambda: orvane.render(snapshot(), screen="scr-trails"), ValueError, "need a Project"),
    (lambda: orvane.code("css", snapshot(), layer="Nothing"), ValueError, "Nothing"),
    (lambda: orvane.code("cobol", snapshot()), ValueError, "css, swiftui or compose"),
    (lambda: orvane.tokens("yaml", project()), ValueError, "dtcg, css, swift or kotlin"),
    (lambda: orvane.render(orvane.Color(red=0, green=0, blue=0, alpha=1)), TypeError, "Snapshot or a Project"),
])
def test_what_cannot_be_done_is_said(call, error, message):
    with pytest.raises(error, match=message):
        call()
