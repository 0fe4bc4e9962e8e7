"""Decode every document of a folder in tasks on a Dask cluster, and ask them one question:
which projects use a color that is not in their own style guide?

    python3 batch.py FOLDER [--scheduler tcp://HOST:8786] [--workers N]

Without --scheduler it starts a local cluster of worker processes. Each task opens its own file
and returns plain Python values (no record crosses a process), so the same script runs on a
cluster of many machines that all see FOLDER at the same path. Prints one status line per
document, then the summary; exit status 1 when any document does not decode.
"""
import argparse
import pathlib
import sys


def colors_outside_style_guide(path):
    """One document's status, and for a project the colors its layers use that its style guide
    lacks. Runs in a worker."""
    import orvane

    try:
        project = orvane.load(orvane.Project, path)
    except orvane.DecodingError as error:
        return {"file": path, "error": str(error)}
    except OSError as error:
        return {"file": path, "error": f"unreadable: {error.strerror}"}

    def key(color):
        return tuple(round(c, 4) for c in (color.red, color.green, color.blue, color.alpha))

    guide = {key(color) for color in project.colors or []}
    outside = set()
    for screen in project.screensByIdentifier.values():
        snapshot = screen.latestVersion.snapshot
        for layer in snapshot.flattenedLayers if snapshot else []:
            for fill in layer.fills or []:
                if fill.kind is not None and fill.kind.key is orvane.Fill.Kind.Key.color:
                    color = key(fill.kind.color)
                    if color not in guide:
                        outside.add(color)
    return {"file": path, "project": project.name, "outside": sorted(outside)}


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("folder")
    parser.add_argument("--scheduler", help="the address of a running Dask scheduler")
    parser.add_argument("--workers", type=int, default=2, help="local worker processes")
    args = parser.parse_args()

    from dask.distributed import Client, LocalCluster

    files = sorted(str(p.resolve()) for p in pathlib.Path(args.folder).glob("*.json"))
    if args.scheduler:
        client = Client(args.scheduler)
    else:
        cluster = LocalCluster(n_workers=args.workers, threads_per_worker=1, processes=True,
                               dashboard_address=None)
        client = Client(cluster)
    with client:
        results = client.gather(client.map(colors_outside_style_guide, files, pure=False))

    failed, offenders = 0, []
    for result in results:
        name = pathlib.Path(result["file"]).name
        if "error" in result:
            failed += 1
            print(f"{name}: {result['error']}")
            continue
        print(f"{name}: ok")
        if result["outside"]:
            offenders.append((result["project"], len(result["outside"])))
    print(f"{len(results) - failed} of {len(results)} documents decode; "
          f"{len(offenders)} use colors outside their style guide"
          + "".join(f"\n  {project}: {count} colors" for project, count in offenders))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
