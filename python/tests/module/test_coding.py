"""decode, load, encode, dump, types, check and schema against the tool on the examples, and
the document form read back."""
import json

import pytest

import orvane
from toolrun import SOURCE, run_tool

EXAMPLES = [("Project", "project.json"), ("Snapshot", "snapshot.json"),
            ("Snapshot", "trail-list.json"), ("Border", "border.json")]


@pytest.mark.parametrize("type_name,name", EXAMPLES)
def test_encode_and_dump_as_the_tool(type_name, name):
    path = SOURCE / "examples" / name
    record = orvane.load(type_name, path)
    for args, ours in [
        (["decode", type_name, path], orvane.encode(record) + "\n"),
        (["decode", type_name, path, "--pretty"], orvane.encode(record, pretty=True) + "\n"),
        (["decode", type_name, path, "--document"], orvane.encode(record, document=True) + "\n"),
    ]:
        status, out, err = run_tool(*args)
        assert status == 0, err
        assert ours == out
    status, out, _ = run_tool("dump", type_name, path)
    assert orvane.dump(record) == json.loads(out)


@pytest.mark.parametrize("type_name,name", EXAMPLES)
def test_the_document_form_reads_back_into_the_same_graph(type_name, name):
    record = orvane.load(type_name, SOURCE / "examples" / name)
    for dates in ("iso8601", "milliseconds", "deferred"):
        text = orvane.encode(record, document=True, dates=dates)
        again = orvane.decode(type_name, text, dates=dates)
        assert orvane.dump(again) == orvane.dump(record)


def test_types_and_schemas_are_the_tools():
    status, out, _ = run_tool("types")
    assert orvane.types() == out.split()
    for type_name, document in [("Layer", False), ("Project", True), ("Density", False)]:
        args = ["schema", type_name] + (["--document"] if document else [])
        status, out, _ = run_tool(*args)
        assert orvane.schema(type_name, document=document) == json.loads(out)


def test_inputs_and_their_failures():
    data = (SOURCE / "examples" / "snapshot.json").read_bytes()
    assert orvane.dump(orvane.decode("Snapshot", data.decode())) == \
        orvane.dump(orvane.decode(orvane.Snapshot, bytearray(data)))
    with pytest.raises(ValueError, match="did you mean Snapshot"):
        orvane.decode("Snapshott", data)
    with pytest.raises(TypeError):
        orvane.decode(int, data)
    with pytest.raises(FileNotFoundError):
        orvane.load("Snapshot", SOURCE / "no-such-file.json")
    with pytest.raises(ValueError, match="dates must be"):
        orvane.decode("Snapshot", data, dates="julian")


def test_a_decoding_error_is_a_value_error_with_its_parts():
    with pytest.raises(orvane.DecodingError) as caught:
        orvane.decode("Layer", b'{"_id":"l","name":"A","sourceId":"s",\n "rect":{"x":0,"y":0,"width":1},"opacity":1}')
    error = caught.value
    assert isinstance(error, ValueError)
    assert (error.kind, error.codingPath, error.key) == ("keyNotFound", ["rect"], "height")
    assert (error.line, error.column, error.reason) == (2, 9, None)
    assert str(error) == 'keyNotFound at rect: No value associated with key "height". (line 2, column 9)'


def test_warnings_list_what_tolerant_keys_dropped():
    warnings = []
    snapshot = orvane.decode("Snapshot", b'{"_id":"s","width":1,"height":1,"density":"9x"}',
                             warnings=warnings)
    assert snapshot.density is None
    assert len(warnings) == 1 and warnings[0].startswith("dropped at density: ")


def test_import_source_gives_fresh_identifiers():
    data = (SOURCE / "examples" / "snapshot.json").read_bytes()
    assert orvane.decode("Snapshot", data).identifier == "5f1a2b3c4d5e6f7a8b9c0d1e"
    assert orvane.decode("Snapshot", data, import_source=True).identifier.startswith("MACOS-")


def test_check_reports_each_file(tmp_path):
    good, bad = tmp_path / "good.json", tmp_path / "bad.json"
    good.write_text('"2x"')
    bad.write_text('"4x"')
    results = orvane.check("Density", [good, bad, tmp_path / "missing.json"])
    status, out, _ = run_tool("check", "Density", good, bad, tmp_path / "missing.json",
                              "--json-errors")
    assert results == [json.loads(line) for line in out.splitlines()]
    assert [("ok" in r) for r in results] == [True, False, False]
