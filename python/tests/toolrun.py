"""What the Python tests share: the source folder and runs of the tool, for comparing with it."""
import os
import pathlib
import subprocess

import pytest

SOURCE = pathlib.Path(os.environ.get("ORVANE_SOURCE_DIR", pathlib.Path(__file__).parents[2]))
TOOL = os.environ.get("ORVANE_TOOL", "")


def run_tool(*args, stdin=None, cwd=None):
    """The tool's run: (exit status, standard output, standard error)."""
    if not TOOL or not os.path.exists(TOOL):
        pytest.skip("the orvane tool is not built here")
    done = subprocess.run([TOOL, *map(str, args)], input=stdin, capture_output=True, cwd=cwd)
    return done.returncode, done.stdout.decode(), done.stderr.decode()
