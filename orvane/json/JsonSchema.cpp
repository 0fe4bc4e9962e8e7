#include <orvane/json/JsonSchema.hpp>

#include <cxxabi.h>

#include <cstdlib>
#include <deque>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <orvane/internal/JsonWriter.hpp>

namespace orvane {

std::string schemaTypeName(const std::type_info& type) {
  int status = 0;
  std::unique_ptr<char, void (*)(void*)> demangled(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), std::free);
  std::string name = status == 0 && demangled ? demangled.get() : type.name();
  constexpr std::string_view prefix = "orvane::";
  if (name.starts_with(prefix)) name.erase(0, prefix.size());
  std::string out;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (name.compare(i, 2, "::") == 0) {
      out += '.';
      ++i;
    } else {
      out += name[i];
    }
  }
  return out;
}

namespace {

constexpr std::string_view kDialect = "https://json-schema.org/draft/2020-12/schema";

// A schema is small: built as a tree, then written in one go, compact or indented.
struct Tree {
  enum class Kind : std::uint8_t { string, boolean, integer, array, object };
  Kind kind = Kind::object;
  std::string text;
  bool flag = false;
  std::int64_t number = 0;
  std::string key;          // as a member of an object: its name
  std::vector<Tree> items;  // an array's elements, or an object's members

  static Tree string(std::string_view value) {
    Tree n;
    n.kind = Kind::string;
    n.text = value;
    return n;
  }
  static Tree boolean(bool value) {
    Tree n;
    n.kind = Kind::boolean;
    n.flag = value;
    return n;
  }
  static Tree integer(std::int64_t value) {
    Tree n;
    n.kind = Kind::integer;
    n.number = value;
    return n;
  }
  static Tree array() {
    Tree n;
    n.kind = Kind::array;
    return n;
  }
  static Tree typed(std::string_view type) {
    Tree n;
    n.add("type", string(type));
    return n;
  }

  Tree& add(std::string_view name, Tree value) {
    value.key = name;
    items.push_back(std::move(value));
    return items.back();
  }
  Tree* find(std::string_view name) {
    for (auto& member : items) {
      if (member.key == name) return &member;
    }
    return nullptr;
  }

  void write(JsonWriter& w) const {
    switch (kind) {
      case Kind::string:
        w.string(text);
        break;
      case Kind::boolean:
        w.boolean(flag);
        break;
      case Kind::integer:
        w.integer(number);
        break;
      case Kind::array:
        w.beginArray();
        for (const auto& item : items) item.write(w);
        w.endArray();
        break;
      case Kind::object:
        w.beginObject();
        for (const auto& member : items) {
          w.key(member.key);
          member.write(w);
        }
        w.endObject();
        break;
    }
  }
};

// Lists each record's members into the object being described, and collects the records and
// enumerations they refer to as definitions.
class SchemaWriter final : public SchemaVisitor {
 public:
  SchemaWriter(const Shape& root, const JsonSchemaOptions& options)
      : root_(root), options_(options) {}

  Tree document() {
    Tree out;
    out.add("$schema", Tree::string(kDialect));
    std::string name = root_.type ? nameOf(root_) : std::string();
    if (!name.empty()) out.add("title", Tree::string(name));
    out.add("description",
            Tree::string(options_.documentForm
                             ? "The document form of " + name +
                                   ": every member that decoding reads, written so that it "
                                   "reads back."
                             : "The documents that decode as " + name + "."));
    Tree body = root_.kind == Shape::Kind::record || root_.kind == Shape::Kind::enumeration
                    ? definition(root_, false)
                    : value(root_);
    for (auto& member : body.items) out.items.push_back(std::move(member));
    // Definitions may refer to further ones; each is written once, sorted by name.
    std::map<std::string, Tree> defs;
    while (!pending_.empty()) {
      const Shape* shape = pending_.front();
      pending_.pop_front();
      defs.emplace(nameOf(*shape), definition(*shape, true));
    }
    if (!defs.empty()) {
      Tree& all = out.add("$defs", Tree());
      for (auto& [key, def] : defs) all.add(key, std::move(def));
    }
    return out;
  }

  void member(const SchemaMember& m, const Shape& shape) override {
    Scope& scope = *scopes_.back();
    Tree property = propertyOf(m, shape, scope);
    if (Tree* earlier = scope.properties.find(m.key)) {
      earlier->items = std::move(property.items);
    } else {
      scope.properties.add(m.key, std::move(property));
      if (isRequired(m.read)) scope.required.items.push_back(Tree::string(m.key));
    }
  }

  void membersOf(const Shape& record) override {
    scopes_.back()->allOf.items.push_back(reference(record));
  }

  void beginCase(std::string_view key, std::string_view raw) override {
    scopes_.push_back(std::make_unique<Scope>());
    scopes_.back()->caseKey = key;
    scopes_.back()->caseRaw = raw;
  }

  void endCase() override {
    std::unique_ptr<Scope> payload = std::move(scopes_.back());
    scopes_.pop_back();
    Tree condition;
    Tree& properties = condition.add("properties", Tree());
    properties.add(payload->caseKey, Tree()).add("const", Tree::string(payload->caseRaw));
    condition.add("required", Tree::array()).items.push_back(Tree::string(payload->caseKey));
    Tree clause;
    clause.add("if", std::move(condition));
    clause.add("then", objectMembers(*payload));
    scopes_.back()->allOf.items.push_back(std::move(clause));
  }

 private:
  struct Scope {
    Tree properties;
    Tree required = Tree::array();
    Tree allOf = Tree::array();
    std::string caseKey, caseRaw;  // a payload's: read only when this key holds this string
  };

  std::string nameOf(const Shape& shape) const {
    return options_.nameOf ? options_.nameOf(*shape.type) : schemaTypeName(*shape.type);
  }

  // Whether the key must be there: read as required, or in the document form always written.
  bool isRequired(SchemaRead read) const {
    return read == SchemaRead::required || (options_.documentForm && read == SchemaRead::orEmpty);
  }

  Tree reference(const Shape& shape) {
    if (root_.type && *shape.type == *root_.type) {
      Tree n;
      n.add("$ref", Tree::string("#"));
      return n;
    }
    std::string name = nameOf(shape);
    if (queued_.emplace(name, &shape).second) pending_.push_back(&shape);
    Tree n;
    n.add("$ref", Tree::string("#/$defs/" + name));
    return n;
  }

  Tree value(const Shape& shape) {
    switch (shape.kind) {
      case Shape::Kind::string:
      case Shape::Kind::identifier:
        return Tree::typed("string");
      case Shape::Kind::integer:
        return Tree::typed("integer");
      case Shape::Kind::number:
        return Tree::typed("number");
      case Shape::Kind::boolean:
        return Tree::typed("boolean");
      case Shape::Kind::date: {
        if (options_.dates != DateStrategy::iso8601) return Tree::typed("number");
        Tree n = Tree::typed("string");
        n.add("format", Tree::string("date-time"));
        return n;
      }
      case Shape::Kind::url: {
        Tree n = Tree::typed("string");
        n.add("format", Tree::string("uri-reference"));
        n.add("minLength", Tree::integer(1));
        return n;
      }
      case Shape::Kind::array: {
        Tree n = Tree::typed("array");
        n.add("items", value(*shape.element));
        return n;
      }
      case Shape::Kind::object: {
        Scope scope;
        describe(shape, scope);
        return objectOf(scope);
      }
      case Shape::Kind::enumeration:
      case Shape::Kind::record:
        return reference(shape);
    }
    return Tree();
  }

  Tree definition(const Shape& shape, bool titled) {
    Tree n;
    if (titled) n.add("title", Tree::string(nameOf(shape)));
    if (shape.kind == Shape::Kind::enumeration) {
      n.add("type", Tree::string("string"));
      Tree& cases = n.add("enum", Tree::array());
      for (std::string_view raw : shape.rawValues) cases.items.push_back(Tree::string(raw));
      return n;
    }
    Scope scope;
    describe(shape, scope);
    for (auto& member : objectOf(scope).items) n.items.push_back(std::move(member));
    return n;
  }

  void describe(const Shape& shape, Scope& scope) {
    scopes_.push_back(std::make_unique<Scope>());
    shape.describe(*this);
    scope = std::move(*scopes_.back());
    scopes_.pop_back();
  }

  // What an object holds: its members, which of them it needs, and the objects it is too.
  static Tree objectMembers(Scope& scope) {
    Tree n;
    n.add("properties", std::move(scope.properties));
    n.add("required", std::move(scope.required));
    if (!scope.allOf.items.empty()) n.add("allOf", std::move(scope.allOf));
    return n;
  }

  // An object of those members; others are allowed, as decoding ignores them.
  static Tree objectOf(Scope& scope) {
    Tree n = Tree::typed("object");
    for (auto& member : objectMembers(scope).items) n.items.push_back(std::move(member));
    n.add("additionalProperties", Tree::boolean(true));
    return n;
  }

  // A value that may also be null: "type" gains "null", or the schema becomes one of two.
  static Tree nullable(Tree schema) {
    if (Tree* type = schema.find("type"); type && type->kind == Tree::Kind::string) {
      type->kind = Tree::Kind::array;
      type->items.push_back(Tree::string(type->text));
      type->items.push_back(Tree::string("null"));
      return schema;
    }
    Tree n;
    Tree& options = n.add("anyOf", Tree::array());
    options.items.push_back(std::move(schema));
    options.items.push_back(Tree::typed("null"));
    return n;
  }

  std::string expected(const Shape& shape) const {
    switch (shape.kind) {
      case Shape::Kind::string:
      case Shape::Kind::identifier:
        return "a string";
      case Shape::Kind::integer:
        return "an integer";
      case Shape::Kind::number:
        return "a number";
      case Shape::Kind::boolean:
        return "true or false";
      case Shape::Kind::date:
        return options_.dates == DateStrategy::iso8601 ? "an RFC 3339 date" : "a number of a date";
      case Shape::Kind::url:
        return "a URI reference";
      case Shape::Kind::enumeration: {
        // The strings themselves: a tolerant member refers to no definition that lists them.
        std::string text = "one of the strings of " + nameOf(shape) + " (";
        for (std::size_t i = 0; i < shape.rawValues.size(); ++i)
          text += (i ? ", \"" : "\"") + std::string(shape.rawValues[i]) + "\"";
        return text + ")";
      }
      case Shape::Kind::array:
        return "an array of which every element reads";
      case Shape::Kind::object:
        return "an object";
      case Shape::Kind::record:
        return "a " + nameOf(shape) + " that decodes";
    }
    return {};
  }

  Tree propertyOf(const SchemaMember& m, const Shape& shape, const Scope& scope) {
    const std::string field = "`" + std::string(m.field) + "`";
    std::string description;
    if (!scope.caseKey.empty()) {
      description = "When \"" + scope.caseKey + "\" is \"" + scope.caseRaw + "\". ";
    }
    Tree n;
    if (options_.documentForm) {
      n = value(shape);
      bool always = m.read == SchemaRead::required || m.read == SchemaRead::orEmpty;
      description += always ? "Always written; fills " + field + "."
                            : "Written when " + field + " has a value.";
    } else {
      switch (m.read) {
        case SchemaRead::required:
          n = value(shape);
          description += "Required; fills " + field + ".";
          break;
        case SchemaRead::optional:
          n = nullable(value(shape));
          description += "Optional: absent or null leave " + field + " without a value.";
          break;
        case SchemaRead::orEmpty:
          n = nullable(value(shape));
          description +=
              "Optional: absent or null give " + field + " " +
              (m.whenAbsent.empty() ? std::string("its empty value") : std::string(m.whenAbsent)) +
              ".";
          break;
        case SchemaRead::tolerant:
          description += "Tolerant: " + expected(shape) + " fills " + field +
                         "; any other value, or none, leaves it without a value and decoding "
                         "goes on, so this schema constrains nothing.";
          break;
      }
    }
    if (!m.remark.empty()) description += " " + std::string(m.remark);
    n.add("description", Tree::string(description));
    return n;
  }

  const Shape& root_;
  const JsonSchemaOptions& options_;
  std::vector<std::unique_ptr<Scope>> scopes_;
  std::map<std::string, const Shape*> queued_;
  std::deque<const Shape*> pending_;
};

}  // namespace

std::string jsonSchema(const Shape& shape, const JsonSchemaOptions& options) {
  SchemaWriter schema(shape, options);
  Tree document = schema.document();
  std::string out;
  {
    JsonWriter writer(out, options.pretty);
    document.write(writer);
  }
  return out;
}

}  // namespace orvane
