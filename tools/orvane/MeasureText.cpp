#include "MeasureText.hpp"

#include <cmath>
#include <optional>

#include <orvane/internal/Markup.hpp>

#include "Report.hpp"

namespace orvane::tool {

namespace {

std::string json(std::string_view text) {
  std::string out;
  orvane::detail::appendJsonString(out, text);
  return out;
}

}  // namespace

std::string Lengths::operator()(double value) const {
  return orvane::detail::number(value / scale);
}

std::string Lengths::json(double value) const {
  return std::isfinite(value / scale) ? orvane::detail::number(value / scale) : "null";
}

std::string measurementText(const handoff::Measurement& m, const Layer& a, const Layer& b,
                            bool asJson, const Lengths& n) {
  using Relation = handoff::Measurement::Relation;
  if (asJson) {
    std::string text = "{\"a\":" + json(a.identifier().rawValue()) +
                       ",\"b\":" + json(b.identifier().rawValue()) + ",\"relation\":";
    switch (m.relation) {
      case Relation::apart:
        text += "\"apart\",\"horizontal\":" + n.json(m.horizontal) +
                ",\"vertical\":" + n.json(m.vertical);
        break;
      case Relation::inside:
        text += std::string("\"inside\",\"inner\":\"") + (m.innerIsA ? "a" : "b") +
                "\",\"top\":" + n.json(m.top) + ",\"right\":" + n.json(m.right) +
                ",\"bottom\":" + n.json(m.bottom) + ",\"left\":" + n.json(m.left);
        break;
      case Relation::overlap:
        text += "\"overlap\",\"width\":" + n.json(m.width) + ",\"height\":" + n.json(m.height);
        break;
    }
    return text + "}\n";
  }
  const std::string an = oneLine(a.name()), bn = oneLine(b.name());
  switch (m.relation) {
    case Relation::apart:
      return an + " and " + bn + " are apart: " + n(m.horizontal) + " horizontally, " +
             n(m.vertical) + " vertically\n";
    case Relation::inside:
      return (m.innerIsA ? an + " lies inside " + bn : bn + " lies inside " + an) + ": top " +
             n(m.top) + ", right " + n(m.right) + ", bottom " + n(m.bottom) + ", left " +
             n(m.left) + "\n";
    case Relation::overlap:
      break;
  }
  return an + " and " + bn + " overlap by " + n(m.width) + " \u00d7 " + n(m.height) + "\n";
}

namespace {

std::string insetsJson(const handoff::Insets& i, const Lengths& n) {
  return "{\"top\":" + n.json(i.top) + ",\"right\":" + n.json(i.right) +
         ",\"bottom\":" + n.json(i.bottom) + ",\"left\":" + n.json(i.left) + "}";
}

std::string insetsText(const handoff::Insets& i, const Lengths& n) {
  return "top " + n(i.top) + ", right " + n(i.right) + ", bottom " + n(i.bottom) + ", left " +
         n(i.left);
}

}  // namespace

std::string placementText(const Layer& layer, const Snapshot& snapshot, bool asJson,
                          const Lengths& n) {
  Rect frame = layer.absoluteFrame();
  Ref<Layer> parent = layer.parent();
  std::optional<handoff::Insets> inParent;
  if (parent) inParent = handoff::insets(frame, parent->absoluteFrame());
  handoff::Insets onArtboard =
      handoff::insets(frame, Rect(0, 0, snapshot.size().width, snapshot.size().height));
  if (asJson) {
    return "{\"a\":" + json(layer.identifier().rawValue()) +
           ",\"parent\":" + (inParent ? insetsJson(*inParent, n) : "null") +
           ",\"artboard\":" + insetsJson(onArtboard, n) + "}\n";
  }
  std::string name = oneLine(layer.name());
  std::string text;
  if (inParent) {
    text += name + " in " + oneLine(parent->name()) + ": " + insetsText(*inParent, n) + "\n";
  }
  return text + name + " on the artboard: " + insetsText(onArtboard, n) + "\n";
}

}  // namespace orvane::tool
