"""The record classes: keyword construction with the model's defaults, attributes that run the
setters and their wiring, read-only back-references, and records that outlive their owners."""
import datetime
import gc

import pytest

import orvane


def layer(name, kind=None, x=0, y=0):
    return orvane.Layer(name=name, sourceIdentifier="src-" + name, kind=kind,
                        frame=orvane.Rect(x=x, y=y, width=10, height=10), rotation=None,
                        cornerRadius=0, opacity=1, blendMode=None, blur=None, isExportable=False,
                        fills=None, borders=None, shadows=None)


def test_keywords_in_the_models_names_with_its_defaults():
    color = orvane.Color(red=1, green=0.5, blue=0, alpha=1)
    assert (color.red, color.green, color.blue, color.alpha) == (1, 0.5, 0, 1)
    # identifier: a fresh local one; the rest must be given
    first, second = layer("a"), layer("b")
    assert first.identifier.startswith("MACOS-") and first.identifier != second.identifier
    assert layer("c").fills is None
    given = orvane.Section(identifier="sec-1", name="Onboarding", description=None,
                           screenIdentifiers=["s1", "s2"])
    assert given.identifier == "sec-1" and given.screenIdentifiers == ["s1", "s2"]
    before = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(seconds=1)
    epoch = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)
    comment = orvane.Comment(note="Looks good", author=None, updateDate=epoch)
    assert comment.createDate > before and comment.updateDate == epoch and comment.dot is None
    gradient = orvane.Gradient(kind=orvane.Gradient.Kind.linear, from_=orvane.Point(x=0, y=0),
                               to=orvane.Point(x=1, y=1), angle=None, scale=None, stops=[])
    assert gradient.from_ == orvane.Point(x=0, y=0)


@pytest.mark.parametrize("make,message", [
    (lambda: orvane.Color(red=1, green=0.5, blue=0), "missing keyword argument 'alpha'"),
    (lambda: orvane.Color(red=1, green=0.5, blue=0, alpha=1, beta=2), "unexpected keyword argument 'beta'"),
    (lambda: orvane.Color(red="one", green=0.5, blue=0, alpha=1), "red cannot be str"),
    # a component's make takes no defaults, not even the identifier's
    (lambda: orvane.Component(name="Button", description="", latestVersion=None,
                              sourceIdentifier=None, tags=None, versions=None),
     "missing keyword argument 'identifier'"),
])
def test_construction_refuses_what_is_not_the_model(make, message):
    with pytest.raises(TypeError, match=message):
        make()


def test_partials_are_made_only_by_decoding():
    with pytest.raises(TypeError):
        orvane.User.Partial()
    partial = orvane.decode(orvane.User.Partial, b'{"email": "a@b.c", "emotar": "nonsense"}')
    assert partial.email == "a@b.c" and partial.emotar is None and partial.username is None
    with pytest.raises(AttributeError):
        partial.email = "d@e.f"  # read-only, as in C++
    partial.token = "t"
    assert partial.token == "t"


def test_enumerations_are_enum_classes_with_raw_values():
    assert orvane.Density("2x") is orvane.Density._2x
    assert orvane.Layer.Kind.Key.group.value == "group"
    snapshot = orvane.decode("Snapshot", b'{"_id":"s","width":1,"height":2,"density":"3x"}')
    assert snapshot.density is orvane.Density._3x
    snapshot.density = orvane.Density.mdpi
    assert snapshot.density is orvane.Density.mdpi
    snapshot.density = "hdpi"  # the raw string is taken too
    assert snapshot.density is orvane.Density.hdpi
    with pytest.raises(TypeError):
        snapshot.density = "4x"


def test_assignment_runs_the_setters_wiring():
    child = layer("child", kind=orvane.Layer.Kind.shape())
    group = layer("group", x=100, y=50)
    assert child.parent is None
    group.kind = orvane.Layer.Kind.group(layers=[child], componentName=None,
                                         interactionLevel=orvane.Layer.InteractionLevel.top)
    assert child.parent is group
    snapshot = orvane.decode("Snapshot", b'{"_id":"s","width":320,"height":480}')
    snapshot.layers = [group]
    # the snapshot hands itself down the tree and flattens it with absolute frames
    assert child.snapshot is snapshot and group.snapshot is snapshot
    # a group at the top level is drawn after its children
    assert [l.name for l in snapshot.flattenedLayers] == ["child", "group"]
    assert snapshot.flattenedLayers[0].absoluteFrame == orvane.Rect(x=100, y=50, width=10, height=10)
    # a list read from a record is a copy: appending to it changes nothing
    snapshot.layers.append(layer("stray"))
    assert len(snapshot.layers) == 1


def test_back_references_are_read_only_and_give_the_owner():
    project = orvane.load("Project", orvane_example("project.json"))
    screen = next(iter(project.screensByIdentifier.values()))
    assert screen.project is project
    assert screen.latestVersion.collection is screen
    with pytest.raises(AttributeError):
        screen.project = None


def test_a_kept_record_outlives_its_owners():
    project = orvane.load("Project", orvane_example("project.json"))
    screen = next(s for s in project.screensByIdentifier.values()
                  if s.latestVersion.snapshot.flattenedLayers)
    kept = screen.latestVersion.snapshot.flattenedLayers[-1]
    name, frame = kept.name, kept.absoluteFrame
    del project, screen
    gc.collect()
    # the layer is alive; the owners it pointed at are gone
    assert kept.name == name and kept.absoluteFrame == frame
    assert kept.snapshot is None
    assert orvane.dump(kept)["snapshot"] is None


def test_optional_lists_dates_and_repr():
    section = orvane.decode("Section", b'{"_id":"sec","name":"A","screens":[]}')
    assert section.screenIdentifiers == [] and section.description is None
    project = orvane.load("Project", orvane_example("project.json"))
    assert isinstance(project.createDate, datetime.datetime)
    assert project.createDate.tzinfo is not None
    moment = datetime.datetime(2024, 5, 1, 12, 30, 0, 250000, tzinfo=datetime.timezone.utc)
    project.createDate = moment
    assert project.createDate == moment
    assert orvane.dump(project)["createDate"] == "2024-05-01T12:30:00.250Z"
    assert repr(project) == "<orvane.Project %s %r>" % (project.identifier, project.name)


def orvane_example(name):
    from toolrun import SOURCE
    return SOURCE / "examples" / name
