"""Load a project, rename one of its screens, save it in the document form and read it back.

    python3 edit_and_save.py PROJECT.json SCREEN_ID "New name" OUT.json
"""
import sys

import orvane


def main(source, screen_id, new_name, target):
    project = orvane.load(orvane.Project, source)
    screen = project.screensByIdentifier[screen_id]
    old_name = screen.name
    screen.name = new_name

    # The document form holds every member that decoding reads, so the saved file decodes
    # into the same graph; what `encode` writes by default is only what the service takes back.
    with open(target, "w", encoding="utf-8") as out:
        out.write(orvane.encode(project, document=True, pretty=True))

    again = orvane.load(orvane.Project, target)
    assert again.screensByIdentifier[screen_id].name == new_name
    assert orvane.dump(again) == orvane.dump(project)
    print(f"{screen_id}: {old_name!r} -> {new_name!r}, saved to {target}")


if __name__ == "__main__":
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    main(*sys.argv[1:])
