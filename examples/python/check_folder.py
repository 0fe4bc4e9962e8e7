"""A CI step: every document of a folder must decode as TYPE.

    python3 check_folder.py TYPE FOLDER

One line per file, `FILE: ok` or `FILE: ` and the error with its line and column; exit status
1 when any file does not decode, so that the pipeline stops there.
"""
import pathlib
import sys

import orvane


def main(type_name, folder):
    files = sorted(str(p) for p in pathlib.Path(folder).glob("*.json"))
    if not files:
        print(f"no .json files in {folder}", file=sys.stderr)
        return 2
    failures = 0
    for result in orvane.check(type_name, files):
        if result.get("ok"):
            print(f"{result['file']}: ok")
            continue
        failures += 1
        error = result["error"]
        where = f" (line {error['line']}, column {error['column']})" if "line" in error else ""
        print(f"{result['file']}: {error['kind']}: {error['description']}{where}")
    print(f"{len(files) - failures} of {len(files)} decode as {type_name}")
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
