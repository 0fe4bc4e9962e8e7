// The records against a coder that is not the library's JSON coder: a caller's own backend over
// a small tree of values, to show that what the records do depends on the decoding interface
// alone (the import-source flag above all).
#include <cctype>
#include <cmath>
#include <cstdlib>
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

// Reads the test's documents, which are well-formed JSON without escapes.
class Tree {
 public:
  explicit Tree(std::string_view text) : text_(text) { root_ = parse(); }
  Node root() const { return root_; }
  const Value& at(Node n) const { return values_[n]; }

 private:
  void skip() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_]))) ++at_;
  }
  std::string string() {
    auto end = text_.find('"', ++at_);
    std::string s(text_.substr(at_, end - at_));
    at_ = end + 1;
    return s;
  }
  Node add(Value v) {
    values_.push_back(std::move(v));
    return values_.size() - 1;
  }
  Node parse() {
    skip();
    Value v;
    char c = text_[at_];
    if (c == '{') {
      ++at_;
      v.kind = '{';
      for (skip(); text_[at_] != '}'; skip()) {
        if (text_[at_] == ',') ++at_, skip();
        std::string key = string();
        skip();
        ++at_;  // ':'
        v.members.emplace_back(key, parse());
      }
      ++at_;
    } else if (c == '[') {
      ++at_;
      v.kind = '[';
      for (skip(); text_[at_] != ']'; skip()) {
        if (text_[at_] == ',') ++at_;
        Node element = parse();
        if (!v.elements.empty()) values_[v.elements.back()].next = element;
        v.elements.push_back(element);
      }
      ++at_;
    } else if (c == '"') {
      v.kind = 's';
      v.text = string();
    } else if (text_.substr(at_, 4) == "null" || text_.substr(at_, 4) == "true") {
      v.kind = c == 'n' ? 'n' : 't';
      at_ += 4;
    } else if (text_.substr(at_, 5) == "false") {
      v.kind = 'f';
      at_ += 5;
    } else {
      v.kind = 'd';
      char* end = nullptr;
      v.number = std::strtod(text_.data() + at_, &end);
      at_ = static_cast<std::size_t>(end - text_.data());
    }
    return add(std::move(v));
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Value> values_;
  Node root_ = 0;
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
T decodeWith(std::string_view text, const UserInfo& userInfo) {
  Tree tree(text);
  TreeBackend backend(tree);
  DecodingContext context(backend, userInfo);
  return Coding<T>::decode(Decoder(context, tree.root(), nullptr));
}

std::string layer(const std::string& id, const std::string& extra = "") {
  return R"({"_id":")" + id + R"(","name":")" + id + R"(","sourceId":"s)" + id +
         R"(","rect":{"x":1,"y":2,"width":3,"height":4},"opacity":1)" + extra + "}";
}

// A screen whose versions carry snapshots with a layer tree and an asset: every record that
// consults the flag, at several depths.
const std::string kScreen =
    R"({"_id":"S","name":"s","latestVersion":{"_id":"V","snapshot":{"_id":"N","width":10,)"
    R"("height":10,"assets":[{"_id":"A","displayName":"d","layerName":"l"}],"layers":[)" +
    layer("G", R"(,"type":"group","layers":[)" + layer("C") + "]") + R"(]}},"versions":[]})";

// A key made from its name is the library's own key.
UserInfo importInfo(std::any flag) {
  UserInfo info;
  info[CodingUserInfoKey(std::string("fromImportSource"))] = std::move(flag);
  return info;
}

}  // namespace

TEST(OwnCoder, TheImportSourceFlagComesFromTheUserInfoOfAnyCoder) {
  auto screen = decodeWith<Ref<Screen>>(kScreen, importInfo(true));
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
      decodeWith<Ref<Screen>>(kScreen, flag.has_value() ? importInfo(flag) : UserInfo{});
      ADD_FAILURE() << "decoded without the flag";
    } catch (const DecodingError& e) {
      EXPECT_EQ(e.key(), "contents");
      EXPECT_EQ(formatCodingPath(e.codingPath()), "latestVersion.snapshot.assets[0]");
    }
  }
  auto plain = decodeWith<Ref<Snapshot>>(
      R"({"_id":"N","width":1,"height":1,"layers":[)" + layer("L") + "]}", UserInfo{});
  EXPECT_EQ(plain->identifier(), Identifier("N"));
  EXPECT_EQ(plain->layers()->at(0)->identifier(), Identifier("L"));
}
