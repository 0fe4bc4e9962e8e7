"""Each example script of examples/python, run as a person would run it."""
import json
import pathlib
import subprocess
import sys

import pytest

import orvane
from toolrun import SOURCE, run_tool

SCRIPTS = SOURCE / "examples" / "python"
PROJECT = SOURCE / "examples" / "project.json"


def run(script, *args):
    done = subprocess.run([sys.executable, str(SCRIPTS / script), *map(str, args)],
                          capture_output=True, text=True, timeout=300)
    return done.returncode, done.stdout, done.stderr


@pytest.fixture
def folder(tmp_path):
    """Two projects (one whose layers use colors outside its style guide, one whose layers use
    none) and a broken document."""
    docs = tmp_path / "docs"
    docs.mkdir()

    def without_fills(layers):
        for layer in layers:
            layer.pop("fills", None)
            without_fills(layer.get("layers", []))

    unpainted = json.loads(PROJECT.read_text())
    for screen in unpainted["screens"]:
        for version in [screen["latestVersion"], *screen.get("versions", [])]:
            without_fills(version.get("snapshot", {}).get("layers", []))
    (docs / "a.json").write_text(json.dumps(unpainted))
    project = json.loads(PROJECT.read_text())
    project["name"] = "Trailhead without colors"
    project["colors"] = []
    (docs / "b.json").write_text(json.dumps(project))
    (docs / "broken.json").write_text(PROJECT.read_text()[:200])
    return docs


def test_edit_and_save(tmp_path):
    target = tmp_path / "saved.json"
    status, out, err = run("edit_and_save.py", PROJECT, "scr-trails", "All trails", target)
    assert status == 0, err
    saved = orvane.load("Project", target)
    assert saved.screensByIdentifier["scr-trails"].name == "All trails"
    assert "scr-trails: 'Trails' -> 'All trails'" in out


def test_tokens_of_every_project_in_a_folder(folder, tmp_path):
    status, out, err = run("tokens_of_folder.py", folder, tmp_path / "tokens", "css")
    assert status == 1 and "broken.json" in err
    for name in ("a", "b"):
        _, expected, _ = run_tool("tokens", "css", folder / f"{name}.json")
        assert (tmp_path / "tokens" / f"{name}.css").read_text() == expected
    assert not (tmp_path / "tokens" / "broken.css").exists()


def test_check_a_folder_for_ci(folder):
    status, out, _ = run("check_folder.py", "Project", folder)
    lines = out.splitlines()
    assert status == 1
    assert lines[0].endswith("a.json: ok") and lines[1].endswith("b.json: ok")
    assert "broken.json: dataCorrupted: The given data was not valid JSON." in lines[2]
    assert lines[3] == "2 of 3 decode as Project"
    status, out, _ = run("check_folder.py", "Project", SOURCE / "examples" / "python")
    assert status == 2  # no documents at all is a mistake of the pipeline's


def test_batch_on_a_local_dask_cluster(folder):
    pytest.importorskip("distributed", reason="Debian: python3-distributed")
    status, out, err = run("batch.py", folder, "--workers", "2")
    lines = out.splitlines()
    assert status == 1, err
    assert lines[:3] == ["a.json: ok", "b.json: ok", lines[2]]
    assert lines[2].startswith("broken.json: dataCorrupted at <root>")
    assert lines[3] == "2 of 3 documents decode; 1 use colors outside their style guide"
    assert lines[4].startswith("  Trailhead without colors: ")
