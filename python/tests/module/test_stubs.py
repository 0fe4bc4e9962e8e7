"""The type stubs name what the module has: the same classes, nested the same way, with the
same public attributes, and the same functions."""
import ast
import enum
import inspect
import pathlib

import orvane

STUBS = pathlib.Path(orvane.__file__).with_name("__init__.pyi")


def stub_names(body):
    """{name: nested names or None} of a module's or class's body."""
    names = {}
    for node in body:
        if isinstance(node, ast.ClassDef):
            names[node.name] = stub_names(node.body)
        elif isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef)):
            names[node.name] = None
        elif isinstance(node, ast.AnnAssign):
            names[node.target.id] = None
        elif isinstance(node, ast.Assign):
            for target in node.targets:
                names[target.id] = None
    return {n: v for n, v in names.items() if public(n)}


def public(name):
    """Dunders are Python's, `_Type` and the like the stubs' own aliases, `n_fields` and its
    like every struct sequence's; `_2x` is a case."""
    if name in ("__init__", "__version__"):
        return True
    if name in ("n_fields", "n_sequence_fields", "n_unnamed_fields"):
        return False
    return not name.startswith("__") and not (name.startswith("_") and name[1:2].isupper())


def module_names(thing, top=False):
    names = {}
    if isinstance(thing, type) and issubclass(thing, enum.Enum):
        return {member: None for member in thing.__members__}
    for name, value in vars(thing).items():
        if not public(name):
            continue
        if name == "__init__" and type(value).__name__ == "wrapper_descriptor":
            continue  # no constructor of ours: only decoding makes one
        if isinstance(value, type) and (top or value.__qualname__.startswith(thing.__qualname__)):
            names[name] = module_names(value)
        elif top and isinstance(value, type):
            names[name] = module_names(value)
        else:
            names[name] = None
    return names


def test_the_stubs_name_what_the_module_has():
    stubs = stub_names(ast.parse(STUBS.read_text()).body)
    # stub-only helpers and imports are no names of the module
    for private in ("datetime", "enum", "os", "Any", "Iterable"):
        stubs.pop(private, None)
    module = module_names(orvane._orvane, top=True)
    module["DecodingError"] = stub_names(ast.parse(inspect.cleandoc('''
        class DecodingError(ValueError):
            kind: str
            codingPath: list
            key: str
            description: str
            line: int
            column: int
            reason: str
    ''')).body)["DecodingError"]  # its attributes are set on each instance
    assert stubs == module


def test_every_type_name_is_a_class_of_the_module():
    for name in orvane.types():
        if name == "Identifier":
            continue  # an identifier is a str
        thing = orvane
        for part in name.split("."):
            thing = getattr(thing, part)
        assert isinstance(thing, type), name
        assert orvane.schema(thing) == orvane.schema(name)
