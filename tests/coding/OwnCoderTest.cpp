// The records against a coder that is not the library's JSON coder: a caller's own backend over
// a small tree of values, to show that what the records do depends on the decoding interface
// alone (the import-source flag above all).
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/orvane.hpp>

using namespace orvane;

namespace {

// A document as a flat list of values; a node is an index into it.
struct Value {
  char kind = 'n';  // n t f s d { [
  std::string text;
  double number = 0;
  std::vector<std::pair<std::string, Node>> members;
  std::vector<Node> elements;
  Node next = 0;  // the following element of the enclosing array
};

// Builds a document in code.
class Tree {
 public:
  using Members = std::vector<std::pair<std::string, Node>>;
  Node str(std::string text) { return add('s', &Value::text, std::move(text)); }
  Node num(double number) { return add('d', &Value::number, number); }
  Node obj(Members members) { return add('{', &Value::members, std::move(members)); }
  Node arr(std::vector<Node> elements) {
    for (std::size_t i = 1; i < elements.size(); ++i) values_[elements[i - 1]].next = elements[i];
    return add('[', &Value::elements, std::move(elements));
  }
  const Value& at(Node n) const { return values_[n]; }

 private:
  template <class F>
  Node add(char kind, F Value::*field, F value) {
    values_.emplace_back().kind = kind;
    values_.back().*field = std::move(value);
    return values_.size() - 1;
  }
  std::vector<Value> values_;
};

class TreeBackend final : public DecoderBackend {
 public:
  explicit TreeBackend(const Tree& tree) : tree_(tree) {}

  bool isNull(Node n) const noexcept override { return tree_.at(n).kind == 'n'; }
  bool isObject(Node n) const noexcept override { return tree_.at(n).kind == '{'; }
  bool isArray(Node n) const noexcept override { return tree_.at(n).kind == '['; }
  bool findMember(Node object, std::string_view key, Node& value,
                  LookupState&) const noexcept override {
    bool found = false;
    for (const auto& [k, v] : tree_.at(object).members) {
      if (k == key) value = v, found = true;
    }
    return found;
  }
  std::size_t arrayCount(Node array) const noexcept override {
    return tree_.at(array).elements.size();
  }
  Node firstElement(Node array) const noexcept override { return tree_.at(array).elements[0]; }
  Node nextElement(Node element) const noexcept override { return tree_.at(element).next; }

  ReadStatus readString(Node n, std::string_view& out) const noexcept override {
    const Value& v = tree_.at(n);
    if (v.kind != 's') return v.kind == 'n' ? ReadStatus::null : ReadStatus::mismatch;
    out = v.text;
    return ReadStatus::ok;
  }
  ReadStatus readDouble(Node n, double& out) const noexcept override {
    const Value& v = tree_.at(n);
    if (v.kind != 'd') return v.kind == 'n' ? ReadStatus::null : ReadStatus::mismatch;
    out = v.number;
    return ReadStatus::ok;
  }
  ReadStatus readInt(Node n, std::int64_t& out) const noexcept override {
    double d;
    ReadStatus s = readDouble(n, d);
    if (s == ReadStatus::ok) {
      if (d != std::trunc(d) || std::fabs(d) > 9e15) return ReadStatus::corrupted;
      out = static_cast<std::int64_t>(d);
    }
    return s;
  }
  ReadStatus readBool(Node n, bool& out) const noexcept override {
    char k = tree_.at(n).kind;
    if (k != 't' && k != 'f') return k == 'n' ? ReadStatus::null : ReadStatus::mismatch;
    out = k == 't';
    return ReadStatus::ok;
  }
  // This coder writes dates as seconds since 1970.
  ReadStatus readDate(Node n, Date& out) const noexcept override {
    double seconds;
    ReadStatus s = readDouble(n, seconds);
    if (s == ReadStatus::ok) out = Date(std::chrono::microseconds(std::llround(seconds * 1e6)));
    return s;
  }
  ReadStatus readUrl(Node n, std::string_view& out) const noexcept override {
    ReadStatus s = readString(n, out);
    return s == ReadStatus::ok && out.empty() ? ReadStatus::corrupted : s;
  }
  std::string describe(Node n) const override { return std::string(1, tree_.at(n).kind); }
  std::string corruptionReason(Node, std::string_view type) const override {
    return "bad " + std::string(type);
  }

 private:
  const Tree& tree_;
};

template <class T>
T decodeWith(Node (*document)(Tree&), const UserInfo& userInfo) {
  Tree tree;
  Node root = document(tree);
  TreeBackend backend(tree);
  DecodingContext context(backend, userInfo);
  return Coding<T>::decode(Decoder(context, root, nullptr));
}

Node layer(Tree& t, const std::string& id, Tree::Members kind = {}) {
  Tree::Members members = {
      {"_id", t.str(id)},
      {"name", t.str(id)},
      {"sourceId", t.str("s" + id)},
      {"rect",
       t.obj({{"x", t.num(1)}, {"y", t.num(2)}, {"width", t.num(3)}, {"height", t.num(4)}})},
      {"opacity", t.num(1)}};
  members.insert(members.end(), kind.begin(), kind.end());
  return t.obj(std::move(members));
}

// A screen whose versions carry snapshots with a layer tree and an asset: every record that
// consults the flag, at several depths.
Node screenDocument(Tree& t) {
  Node group = layer(t, "G", {{"type", t.str("group")}, {"layers", t.arr({layer(t, "C")})}});
  Node asset =
      t.obj({{"_id", t.str("A")}, {"displayName", t.str("d")}, {"layerName", t.str("l")}});
  Node snapshot = t.obj({{"_id", t.str("N")}, {"width", t.num(10)}, {"height", t.num(10)},
                         {"assets", t.arr({asset})}, {"layers", t.arr({group})}});
  return t.obj({{"_id", t.str("S")},
                {"name", t.str("s")},
                {"latestVersion", t.obj({{"_id", t.str("V")}, {"snapshot", snapshot}})},
                {"versions", t.arr({})}});
}

Node snapshotDocument(Tree& t) {
  return t.obj({{"_id", t.str("N")}, {"width", t.num(1)}, {"height", t.num(1)},
                {"layers", t.arr({layer(t, "L")})}});
}

// A key made from its name is the library's own key.
UserInfo importInfo(std::any flag) {
  UserInfo info;
  info[CodingUserInfoKey(std::string("fromImportSource"))] = std::move(flag);
  return info;
}

}  // namespace

TEST(OwnCoder, TheImportSourceFlagComesFromTheUserInfoOfAnyCoder) {
  auto screen = decodeWith<Ref<Screen>>(screenDocument, importInfo(true));
  auto version = screen->latestVersion();
  auto snapshot = version->snapshot();
  for (const Identifier* id :
       {&screen->identifier(), &version->identifier(), &snapshot->identifier(),
        &snapshot->assets()->at(0)->identifier(), &snapshot->layers()->at(0)->identifier(),
        &snapshot->flattenedLayers()->at(0)->identifier()}) {
    EXPECT_TRUE(id->isLocal()) << id->rawValue();
  }
  // Each layer gets an identifier of its own; source identifiers are the design's and stay.
  EXPECT_NE(snapshot->layers()->at(0)->identifier(),
            snapshot->flattenedLayers()->at(0)->identifier());
  EXPECT_EQ(snapshot->flattenedLayers()->at(0)->sourceIdentifier(), Identifier("sC"));
  // An asset under the flag does without "contents"; wiring is the coder-independent part.
  EXPECT_TRUE(snapshot->assets()->at(0)->contents().empty());
  EXPECT_EQ(snapshot->flattenedLayers()->at(0)->parent(), snapshot->layers()->at(0));
  EXPECT_EQ(snapshot->flattenedLayers()->at(0)->absoluteFrame(), Rect(2, 4, 3, 4));

  // Anything but a Boolean true leaves the flag off: the document's identifiers are read, and
  // the asset without "contents" is refused.
  for (std::any flag : {std::any(false), std::any(std::string("true")), std::any(1), std::any()}) {
    try {
      decodeWith<Ref<Screen>>(screenDocument, flag.has_value() ? importInfo(flag) : UserInfo{});
      ADD_FAILURE() << "decoded without the flag";
    } catch (const DecodingError& e) {
      EXPECT_EQ(e.key(), "contents");
      EXPECT_EQ(formatCodingPath(e.codingPath()), "latestVersion.snapshot.assets[0]");
    }
  }
  auto plain = decodeWith<Ref<Snapshot>>(snapshotDocument, UserInfo{});
  EXPECT_EQ(plain->identifier(), Identifier("N"));
  EXPECT_EQ(plain->layers()->at(0)->identifier(), Identifier("L"));
}
