// Small records that exist only to exercise the coding rules.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <orvane/orvane.hpp>

namespace orvane::fixtures {

enum class Tone { light, dark };

}  // namespace orvane::fixtures

template <>
struct orvane::EnumTraits<orvane::fixtures::Tone> {
  static constexpr std::string_view typeName = "Tone";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<fixtures::Tone>, 2> cases{{
      {fixtures::Tone::light, "light", "light"},
      {fixtures::Tone::dark, "dark", "dark"},
  }};
};

namespace orvane::fixtures {

/// One field per coding term.
struct Probe {
  std::string name;                   // required
  std::optional<double> weight;       // optional
  std::optional<Tone> tone;           // tolerant
  std::optional<std::int64_t> count;  // tolerant scalar

  static Probe decode(const Decoder& d) {
    auto c = d.container();
    Probe p;
    p.name = c.decode<std::string>("name");
    p.weight = c.decodeIfPresent<double>("weight");
    p.tone = c.decodeTolerant<Tone>("tone");
    p.count = c.decodeTolerant<std::int64_t>("count");
    return p;
  }
  void encode(Encoder& e) const {
    auto c = e.container();
    c.encode("name", name);
    c.encodeIfPresent("weight", weight);
    c.encodeIfPresent("tone", tone);
  }
};

/// A record held by reference with a nested list, a rectangle and a required enumeration.
class TreeNode {
 public:
  static Ref<TreeNode> decode(const Decoder& d) {
    auto c = d.container();
    auto n = std::make_shared<TreeNode>();
    n->title = c.decode<std::string>("title");
    n->frame = c.decode<Rect>("rect");
    n->tone = c.decodeIfPresent<Tone>("tone");
    n->children = c.decodeIfPresent<std::vector<Ref<TreeNode>>>("children");
    return n;
  }
  void encode(Encoder& e) const {
    auto c = e.container();
    c.encode("title", title);
    c.encode("rect", frame);
    c.encodeIfPresent("tone", tone);
    c.encodeIfPresent("children", children);
  }
  void visitFields(FieldVisitor& v) const {
    v.field("title", title);
    v.field("frame", frame);
    v.field("tone", tone);
    v.field("children", children);
  }

  std::string title;
  Rect frame;
  std::optional<Tone> tone;
  std::optional<std::vector<Ref<TreeNode>>> children;
};

/// A base and a derived record coded side by side in one object through two key sets.
struct Base {
  double size = 0;
  static void decodeInto(const Decoder& d, Base& b) { b.size = d.container().decodeDouble("size"); }
  void encodeInto(Encoder& e) const { e.container().encode("size", size); }
};
struct Derived : Base {
  std::string label;
  static Derived decode(const Decoder& d) {
    Derived out;
    out.label = d.container().decode<std::string>("label");
    Base::decodeInto(d, out);
    return out;
  }
  void encode(Encoder& e) const {
    e.container().encode("label", label);
    encodeInto(e);
  }
};

}  // namespace orvane::fixtures
