"""Write the design tokens of every project document in a folder, one file per project.

    python3 tokens_of_folder.py FOLDER OUTPUT_FOLDER [dtcg|css|swift|kotlin]

A file that is no project is named on standard error and skipped; the exit status is 1 then.
"""
import pathlib
import sys

import orvane

SUFFIX = {"dtcg": ".tokens.json", "css": ".css", "swift": ".swift", "kotlin": ".kt"}


def main(folder, output, format="dtcg"):
    output = pathlib.Path(output)
    output.mkdir(parents=True, exist_ok=True)
    failed = False
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        try:
            project = orvane.load(orvane.Project, path)
        except orvane.DecodingError as error:
            print(f"{path.name}: {error}", file=sys.stderr)
            failed = True
            continue
        target = output / (path.stem + SUFFIX[format])
        target.write_text(orvane.tokens(format, project, pretty=True), encoding="utf-8")
        print(f"{path.name}: {len(project.colors or [])} colors, "
              f"{len(project.textStyles or [])} text styles -> {target.name}")
    return 1 if failed else 0


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
