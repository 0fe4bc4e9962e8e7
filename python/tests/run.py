"""Runs one folder of the Python tests with pytest, as CTest asks:

    run.py PACKAGE_DIR TOOL SOURCE_DIR FOLDER

Exits 77 (skipped) where the module was not built (sanitizer builds: a plain interpreter cannot
load an instrumented module) or where pytest is missing.
"""
import os
import sys

package_dir, tool, source_dir, folder = sys.argv[1:5]
sys.path.insert(0, package_dir)
try:
    import orvane
except ImportError as error:
    print(f"skipped: the orvane module is not built here ({error})")
    sys.exit(77)
if not os.path.abspath(orvane.__file__).startswith(os.path.abspath(package_dir)):
    print(f"skipped: the orvane module is not built here (found {orvane.__file__} instead)")
    sys.exit(77)
try:
    import pytest
except ImportError:
    print("skipped: pytest is missing (Debian: python3-pytest)")
    sys.exit(77)

os.environ["ORVANE_TOOL"] = tool
os.environ["ORVANE_SOURCE_DIR"] = source_dir
os.environ["PYTHONPATH"] = os.pathsep.join(filter(None, [package_dir, os.environ.get("PYTHONPATH")]))
# The helpers the folders share (toolrun.py) sit beside this script.
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.exit(pytest.main(["-q", "-p", "no:cacheprovider", os.path.join(os.path.dirname(__file__), folder)]))
