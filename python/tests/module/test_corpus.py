"""The tool's corpus through Python: every case of `decode`, `dump` and `check --json-errors`
must give, through the module, what the case expects of the tool."""
import json
import pathlib

import pytest

import orvane
from toolrun import SOURCE

FLAGS = {"--json-errors", "--pretty", "--document", "--import-source", "--warnings"}


def parse(path):
    """The header's fields as text; each section's bytes (documents may hold any byte)."""
    header, sections, current = {}, {}, None
    for line in path.read_bytes().splitlines(keepends=True):
        if line.startswith(b"--- "):
            current = line[4:].strip().decode()
            sections[current] = b""
        elif current is not None:
            sections[current] += line
        elif line.strip() and not line.startswith(b"#"):
            key, value = line.decode().split(":", 1)
            header[key.strip()] = value.strip()
    return header, sections


def text(value):
    """A str from the module as the bytes the tool writes."""
    return value.encode("utf-8", "surrogateescape")


def cases():
    for path in sorted((SOURCE / "tests" / "corpus").glob("*/*.case")):
        header, sections = parse(path)
        args = header.get("args", "").split()
        if not args or args[0] not in ("decode", "dump", "check") or len(args) < 2:
            continue
        if args[1].startswith("-") or "-" in args[2:]:
            continue  # help, and standard input as a file: the tool's own
        status = int(header.get("exit", "0"))
        if status == 2:
            continue  # usage errors are the tool's own
        if args[0] == "check" and "--json-errors" not in args:
            continue  # the text lines are the tool's; Python gets the JSON form
        yield pytest.param(path, header, sections, id=f"{path.parent.name}/{path.stem}")


def options(args):
    flags, positional, dates, rest = set(), [], "iso8601", iter(args)
    for arg in rest:
        if arg == "--dates":
            dates = next(rest)
        elif arg in FLAGS:
            flags.add(arg)
        else:
            positional.append(arg)
    return flags, positional, dates


def error_object(error):
    """The inner object of the tool's error JSON, from the exception's attributes."""
    out = {"kind": error.kind, "codingPath": error.codingPath, "key": error.key,
           "description": error.description}
    if error.line is not None:
        out["line"], out["column"] = error.line, error.column
    if error.reason is not None:
        out["reason"] = error.reason
    return out


@pytest.mark.parametrize("path,header,sections", cases())
def test_case(path, header, sections, tmp_path, monkeypatch):
    args = header["args"].split()
    command, type_name = args[0], args[1]
    flags, positional, dates = options(args[2:])
    files = {name[5:]: text for name, text in sections.items() if name.startswith("file ")}
    status = int(header.get("exit", "0"))
    stdout = sections.get("stdout", b"")

    if command == "check":
        for name, data in files.items():
            (tmp_path / name).write_bytes(data)
        monkeypatch.chdir(tmp_path)
        results = orvane.check(type_name, positional, import_source="--import-source" in flags,
                               dates=dates)
        assert results == [json.loads(line) for line in stdout.splitlines()]
        return

    data = files[positional[0]] if positional and positional[0] != "-" else sections.get("stdin", b"")
    warnings = [] if "--warnings" in flags else None
    try:
        value = orvane.decode(type_name, data, import_source="--import-source" in flags,
                              dates=dates, warnings=warnings)
    except orvane.DecodingError as error:
        assert status == 1, f"unexpected failure: {error}"
        if "stderr" in sections:
            assert text("error: " + str(error) + "\n") == sections["stderr"]
        if "--json-errors" in flags:
            assert {"error": error_object(error)} == json.loads(stdout)
        return
    assert status == 0, "decoded although the tool fails"
    if command == "dump":
        assert orvane.dump(value) == json.loads(stdout)
    else:
        written = orvane.encode(value, pretty="--pretty" in flags,
                                document="--document" in flags, dates=dates)
        assert text(written + "\n") == stdout
    if warnings is not None and "stderr" in sections:
        assert text("".join(f"warning: {w}\n" for w in warnings)) == sections["stderr"]
