"""Generated documents for the viewer's tests: a project of several screens and versions, with
dots, links, assets and a style guide, written as the service writes its JSON."""

import copy
import json


def color(r, g, b, a=1):
    return {"r": r, "g": g, "b": b, "a": a}


def solid(c, **rest):
    return dict({"fillType": "color", "color": c}, **rest)


def layer(ident, name, x, y, w, h, **rest):
    out = {"_id": ident, "name": name, "sourceId": "src-" + ident, "type": "shape",
           "rect": {"x": x, "y": y, "width": w, "height": h}, "opacity": 1}
    out.update(rest)
    return out


def text(ident, name, x, y, w, h, content, face="DejaVuSans-Bold", size=16, line=20, **rest):
    style = {"fontFace": face, "fontSize": size, "lineHeight": line, "color": color(0.1, 0.1, 0.1)}
    return layer(ident, name, x, y, w, h, type="text", content=content,
                 textStyles=[{"range": {"location": 0, "length": len(content)}, "style": style}],
                 **rest)


def group(ident, name, x, y, w, h, children, level="bottom", **rest):
    return layer(ident, name, x, y, w, h, type="group", interactionLevel=level, layers=children, **rest)


def home_layers(version):
    """The layers of the Home screen; version 2 moves the title, drops the banner, adds a badge."""
    title_y = 40 if version == 1 else 52
    layers = [
        text("title", "Title", 20, title_y, 240, 30, "Welcome home", size=24, line=30),
        group("card", "Card", 20, 120, 300, 180, [
            layer("photo", "Photo", 0, 0, 300, 120, fills=[solid(color(0.5, 0.7, 0.9))], borderRadius=12),
            text("name", "Name", 16, 136, 200, 24, "Ridge trail"),
            layer("icon", "Icon", 250, 140, 24, 24, exportable=True,
                  fills=[solid(color(0.2, 0.6, 0.3))]),
        ], fills=[solid(color(1, 1, 1))], borderRadius=16,
            shadows=[{"type": "outer", "offsetX": 0, "offsetY": 4, "blurRadius": 12, "color": color(0, 0, 0, 0.2)}]),
        layer("button", "Start", 20, 560, 320, 50, fills=[solid(color(0.13, 0.55, 0.33))], borderRadius=25),
    ]
    if version == 1:
        layers.append(layer("banner", "Banner", 0, 320, 360, 60, fills=[solid(color(0.9, 0.8, 0.3))]))
    else:
        layers.append(layer("badge", "Badge", 300, 44, 40, 20, fills=[solid(color(0.9, 0.2, 0.2))], borderRadius=10))
        layers[2]["fills"] = [solid(color(0.8, 0.3, 0.1))]
    return layers


def snapshot(ident, layers, links=None, assets=None):
    out = {"_id": ident, "width": 360, "height": 640, "density": "2x",
           "backgroundColor": color(0.98, 0.98, 0.97), "layers": layers}
    if links is not None:
        out["links"] = links
    if assets is not None:
        out["assets"] = assets
    return out


def version(ident, created, message, snap, author="ana"):
    return {"_id": ident, "created": created, "snapshot": snap,
            "commit": {"message": message, "author": {"_id": "u-" + author, "email": author + "@example.com", "username": author}}}


def project():
    links = [{"sourceId": "l1", "rect": {"x": 20, "y": 560, "width": 320, "height": 50},
              "destination": {"type": "screen", "name": "Details"}},
             {"rect": {"x": 0, "y": 0, "width": 60, "height": 30}, "destination": {"type": "previous"}}]
    assets = [{"_id": "a1", "displayName": "Trail icon", "layerName": "Icon", "layerId": "icon", "isBitmap": True,
               "contents": [{"url": "https://cdn.example.com/icon@2x.png", "density": "2x", "format": "png"},
                            {"url": "https://cdn.example.com/icon@3x.png", "density": "3x", "format": "png"}]}]
    home1 = version("home-1", "2026-01-10T09:00:00Z", "First layout", snapshot("s-home-1", home_layers(1)))
    home2 = version("home-2", "2026-02-12T10:30:00Z", "Bigger title, a badge",
                    snapshot("s-home-2", home_layers(2), links=links, assets=assets), author="ben")
    details = version("details-1", "2026-01-11T09:00:00Z", "Details", snapshot("s-details-1", [
        text("heading", "Heading", 20, 40, 300, 30, "Ridge trail", size=22, line=28),
        layer("map", "Map", 20, 90, 320, 200, fills=[solid(color(0.7, 0.85, 0.7))])]))
    settings = version("settings-1", "2026-01-12T09:00:00Z", "Settings", snapshot("s-settings-1", [
        text("label", "Label", 20, 40, 200, 24, "Settings")]))
    button = version("button-1", "2026-01-13T09:00:00Z", "Button", snapshot("s-button-1", [
        layer("bg", "Background", 0, 0, 200, 48, fills=[solid(color(0.13, 0.55, 0.33))], borderRadius=24)]))
    dots = [{"_id": "dot-1", "status": "open", "name": "Title size", "x": 120, "y": 60, "color": color(1, 0.6, 0),
             "creator": {"_id": "u-ben", "email": "ben@example.com", "username": "ben"},
             "comments": [
                 {"_id": "c1", "note": "Is 24 too big?", "created": "2026-02-12T11:00:00Z", "updated": "2026-02-12T11:00:00Z",
                  "author": {"_id": "u-ben", "email": "ben@example.com", "username": "ben"}},
                 {"_id": "c2", "note": "Fine on a 360 wide phone.", "created": "2026-02-12T12:00:00Z", "updated": "2026-02-12T12:00:00Z",
                  "author": {"_id": "u-ana", "email": "ana@example.com", "username": "ana"}}]}]
    return {
        "_id": "prj", "name": "Hikes", "type": "android", "density": "2x", "icon": {"type": "car"},
        "created": "2026-01-01T00:00:00Z", "updated": "2026-02-12T12:00:00Z",
        "sections": [{"_id": "sec-a", "name": "Main", "screens": ["home", "details"]}],
        "screens": [
            {"_id": "home", "name": "Home", "latestVersion": home2, "versions": [home2, home1], "dots": dots},
            {"_id": "details", "name": "Details", "latestVersion": details, "versions": [details], "dots": []},
            {"_id": "settings", "name": "Settings", "latestVersion": settings, "versions": [settings], "dots": []},
        ],
        "colors": [{"_id": "c-forest", "name": "Brand/Forest", "r": 0.13, "g": 0.55, "b": 0.33, "a": 1},
                   {"_id": "c-ink", "name": "Ink", "r": 0.1, "g": 0.1, "b": 0.1, "a": 1}],
        "textStyles": [{"_id": "t-title", "name": "Title", "fontFace": "DejaVuSans-Bold", "fontSize": 24,
                        "lineHeight": 30, "color": color(0.1, 0.1, 0.1)}],
        "componentSections": [{"_id": "cs", "name": "Controls", "components": [
            {"_id": "cmp-button", "name": "Button", "latestVersion": button, "versions": [button]}]}],
        "users": [{"role": "owner", "user": {"_id": "u-ana", "email": "ana@example.com", "username": "ana"}},
                  {"role": "admin", "user": {"_id": "u-ben", "email": "ben@example.com", "username": "ben"}}],
    }


def write(path, document):
    with open(path, "w", encoding="utf-8") as f:
        json.dump(document, f)


def renamed(document, layer_id, name):
    """The document with one layer of the Home screen's latest version renamed."""
    out = copy.deepcopy(document)
    def walk(layers):
        for l in layers:
            if l["_id"] == layer_id:
                l["name"] = name
            walk(l.get("layers", []))
    home = out["screens"][0]
    walk(home["latestVersion"]["snapshot"]["layers"])
    walk(home["versions"][0]["snapshot"]["layers"])
    return out
