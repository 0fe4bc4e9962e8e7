"""The object model of the design hand-off service: records, their documents, and the hand-off
toolkit, from the C++ library itself.

    import orvane
    project = orvane.load(orvane.Project, "project.json")
    print(project.name, [screen.name for screen in project.screens])
"""

from ._orvane import *  # noqa: F401,F403
from ._orvane import DecodingError, __version__  # noqa: F401
