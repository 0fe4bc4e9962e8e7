// A group of screens, in the order in which they are shown.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Project;

/// Names its screens by identifier; the project resolves them. Refers weakly to its project.
class Section {
 public:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view screenIdentifiers = "screens";
  };

  class Partial;

  Section(Passkey<Section>, Identifier identifier, std::string name,
          std::optional<std::string> description, std::vector<Identifier> screenIdentifiers)
      : identifier_(std::move(identifier)),
        name_(std::move(name)),
        description_(std::move(description)),
        screenIdentifiers_(std::move(screenIdentifiers)) {}

  static Ref<Section> make(std::string name, std::optional<std::string> description,
                           std::vector<Identifier> screenIdentifiers,
                           Identifier identifier = Identifier::local());
  static Ref<Section> decode(const Decoder& decoder);
  /// Writes "_id" only for an identifier the service assigned (not a local one).
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<std::string>& description() const { return description_; }
  void setDescription(std::optional<std::string> value) { description_ = std::move(value); }
  const std::vector<Identifier>& screenIdentifiers() const { return screenIdentifiers_; }
  void setScreenIdentifiers(std::vector<Identifier> value) {
    screenIdentifiers_ = std::move(value);
  }
  /// The owning project; set by it, empty once it is gone.
  Ref<Project> project() const { return project_.lock(); }
  void setProject(const Ref<Project>& value) { project_ = value; }

 private:
  Identifier identifier_;
  std::string name_;
  std::optional<std::string> description_;
  std::vector<Identifier> screenIdentifiers_;
  WeakRef<Project> project_;
};

/// What the decode-only forms of a section and a component section hold: "_id", "name" and
/// "description", each optional.
class SectionPartial {
 public:
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<std::string>& description() const { return description_; }

 protected:
  SectionPartial() = default;
  void read(const Decoder& decoder);

 private:
  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  std::optional<std::string> description_;
};

class Section::Partial : public SectionPartial {
 public:
  static Partial decode(const Decoder& decoder);

 private:
  Partial() = default;
};

}  // namespace orvane
