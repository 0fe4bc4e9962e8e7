#include "binder.hpp"

namespace orvane::bench::binder {

namespace {

using simdjson::ondemand::array;
using simdjson::ondemand::object;
using simdjson::ondemand::value;

std::string text(value v) {
  return std::string(std::string_view(v));
}

Color color(object o) {
  Color c;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    double d = field.value().get_double();
    if (key == "r") c.r = d;
    else if (key == "g") c.g = d;
    else if (key == "b") c.b = d;
    else if (key == "a") c.a = d;
  }
  return c;
}

Rect rect(object o) {
  Rect r;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    double d = field.value().get_double();
    if (key == "x") r.x = d;
    else if (key == "y") r.y = d;
    else if (key == "width") r.width = d;
    else if (key == "height") r.height = d;
  }
  return r;
}

void point(object o, double& x, double& y) {
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "x") x = field.value().get_double();
    else if (key == "y") y = field.value().get_double();
  }
}

Gradient gradient(object o) {
  Gradient g;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "type") g.type = text(field.value());
    else if (key == "from") point(field.value().get_object(), g.fromX, g.fromY);
    else if (key == "to") point(field.value().get_object(), g.toX, g.toY);
    else if (key == "colorStops") {
      for (auto element : field.value().get_array()) {
        Stop stop;
        for (auto member : element.get_object()) {
          std::string_view k = member.unescaped_key();
          if (k == "color") stop.color = color(member.value().get_object());
          else if (k == "position") stop.position = member.value().get_double();
        }
        g.stops.push_back(stop);
      }
    }
  }
  return g;
}

Fill fill(object o) {
  Fill f;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "fillType") f.fillType = text(field.value());
    else if (key == "color") f.color = color(field.value().get_object());
    else if (key == "gradient") f.gradient = gradient(field.value().get_object());
    else if (key == "opacity") f.opacity = field.value().get_double();
    else if (key == "position") f.position = text(field.value());
    else if (key == "thickness") f.thickness = field.value().get_double();
  }
  return f;
}

Shadow shadow(object o) {
  Shadow s;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "type") s.type = text(field.value());
    else if (key == "offsetX") s.offsetX = field.value().get_double();
    else if (key == "offsetY") s.offsetY = field.value().get_double();
    else if (key == "blurRadius") s.blurRadius = field.value().get_double();
    else if (key == "spread") s.spread = field.value().get_double();
    else if (key == "color") s.color = color(field.value().get_object());
  }
  return s;
}

TextStyle textStyle(object o) {
  TextStyle s;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "fontFace") s.fontFace = text(field.value());
    else if (key == "fontSize") s.fontSize = field.value().get_double();
    else if (key == "lineHeight") s.lineHeight = field.value().get_double();
    else if (key == "letterSpacing") s.letterSpacing = field.value().get_double();
    else if (key == "color") s.color = color(field.value().get_object());
    else if (key == "textAlign") s.textAlign = text(field.value());
  }
  return s;
}

StyledRange styledRange(object o) {
  StyledRange r;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "range") {
      for (auto member : field.value().get_object()) {
        std::string_view k = member.unescaped_key();
        if (k == "location") r.location = member.value().get_uint64();
        else if (k == "length") r.length = member.value().get_uint64();
      }
    } else if (key == "style") {
      r.style = textStyle(field.value().get_object());
    }
  }
  return r;
}

std::unique_ptr<Layer> layer(object o, Layer* parent);

void layers(array a, std::vector<std::unique_ptr<Layer>>& out, Layer* parent) {
  for (auto element : a) out.push_back(layer(element.get_object(), parent));
}

std::unique_ptr<Layer> layer(object o, Layer* parent) {
  auto l = std::make_unique<Layer>();
  l->parent = parent;
  for (auto field : o) {
    std::string_view key = field.unescaped_key();
    if (key == "_id") l->identifier = text(field.value());
    else if (key == "name") l->name = text(field.value());
    else if (key == "sourceId") l->sourceIdentifier = text(field.value());
    else if (key == "type") l->type = text(field.value());
    else if (key == "rect") l->frame = rect(field.value().get_object());
    else if (key == "rotation") l->rotation = field.value().get_double();
    else if (key == "borderRadius") l->borderRadius = field.value().get_double();
    else if (key == "opacity") l->opacity = field.value().get_double();
    else if (key == "blendMode") l->blendMode = text(field.value());
    else if (key == "exportable") l->exportable = field.value().get_bool();
    else if (key == "content") l->content = text(field.value());
    else if (key == "componentName") l->componentName = text(field.value());
    else if (key == "interactionLevel") l->interactionLevel = text(field.value());
    else if (key == "blur") {
      for (auto member : field.value().get_object()) {
        std::string_view k = member.unescaped_key();
        if (k == "type") l->blurType = text(member.value());
        else if (k == "radius") l->blurRadius = member.value().get_double();
      }
    } else if (key == "fills") {
      for (auto element : field.value().get_array()) l->fills.push_back(fill(element.get_object()));
    } else if (key == "borders") {
      for (auto element : field.value().get_array()) l->borders.push_back(fill(element.get_object()));
    } else if (key == "shadows") {
      for (auto element : field.value().get_array()) l->shadows.push_back(shadow(element.get_object()));
    } else if (key == "textStyles") {
      for (auto element : field.value().get_array())
        l->textStyles.push_back(styledRange(element.get_object()));
    } else if (key == "layers") {
      layers(field.value().get_array(), l->layers, l.get());
    }
  }
  return l;
}

void flatten(const std::vector<std::unique_ptr<Layer>>& from, double x, double y,
             std::vector<Layer*>& out) {
  for (const auto& l : from) {
    l->absoluteFrame = {x + l->frame.x, y + l->frame.y, l->frame.width, l->frame.height};
    out.push_back(l.get());
    flatten(l->layers, l->absoluteFrame.x, l->absoluteFrame.y, out);
  }
}

}  // namespace

Snapshot bind(simdjson::ondemand::parser& parser, const simdjson::padded_string& json) {
  Snapshot s;
  auto document = parser.iterate(json);
  for (auto field : document.get_object()) {
    std::string_view key = field.unescaped_key();
    if (key == "_id") s.identifier = text(field.value());
    else if (key == "width") s.width = field.value().get_double();
    else if (key == "height") s.height = field.value().get_double();
    else if (key == "url") s.url = text(field.value());
    else if (key == "density") s.density = text(field.value());
    else if (key == "source") s.source = text(field.value());
    else if (key == "backgroundColor") s.background = color(field.value().get_object());
    else if (key == "componentNames") {
      for (auto element : field.value().get_array()) s.componentNames.push_back(text(element.value()));
    } else if (key == "layers") {
      layers(field.value().get_array(), s.layers, nullptr);
    }
  }
  flatten(s.layers, 0, 0, s.flattened);
  return s;
}

}  // namespace orvane::bench::binder
