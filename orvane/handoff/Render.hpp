// A snapshot drawn as one SVG document.
#pragma once

#include <string>

#include <orvane/snapshot/Snapshot.hpp>

/// What people build from a decoded design: drawings, and how the model's values read for them.
/// Reads the records through their public accessors only.
namespace orvane::handoff {

/// What `renderSvg` draws over the design.
struct RenderOptions {
  /// The hotspot links as outlined regions labelled with their destination (`data-link`).
  bool links = false;
  /// The layout grid's columns and rows.
  bool grid = false;
  /// An outline around each exportable layer and each layer an asset names.
  bool assets = false;
  /// Put before every id the drawing defines (gradients, filters, masks, the layers that
  /// backdrops show), so that several drawings can lie in one HTML page.
  std::string idPrefix = {};
  /// A sketch, for small drawings of many snapshots, quick for a browser to draw: text as SVG
  /// `<text>` alone (laid out by estimate, no HTML), and no shadows, blurs or backdrops, whose
  /// filters cost the most.
  bool sketch = false;
};

/// The snapshot as an SVG document of its size: the background color, then every layer of
/// `flattenedLayers` in order at its absolute frame, each in an element carrying
/// `data-layer="IDENTIFIER"`, then the overlays asked for. Nothing is fetched: the document
/// holds no reference to a URL of the design.
///
/// How values are drawn: units are CSS pixels; rotation turns counter-clockwise about the
/// layer's centre; fills, borders and shadows stack in list order, the first lowest; outer
/// shadows show outside the layer's outline only and inner ones inside it, as CSS box shadows
/// do (a text layer's outer shadows fall from its glyphs, without spread); a blend mode CSS
/// lacks is drawn as the nearest one, said in a comment; text is laid out by the browser in
/// its frame, wrapping at its width, and angular gradients are CSS conic gradients, both in
/// `foreignObject` (viewers without HTML support leave them out); a background blur blurs the
/// layers below it that it overlaps, up to a budget linear in the number of layers.
std::string renderSvg(const Snapshot& snapshot, const RenderOptions& options = {});

}  // namespace orvane::handoff
