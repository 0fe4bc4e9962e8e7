// A screen of the design: a version collection with the dots of its conversation.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/project/Dot.hpp>
#include <orvane/project/VersionCollection.hpp>

namespace orvane {

/// Filed in its project by identifier; owns its dots and points each back at itself. A screen
/// is made only with its dots: the collection's own `make` is hidden here on purpose.
class Screen : public VersionCollection {
 public:
  class Partial;

  /// `setDots` points every dot back here; removed dots keep theirs.
#define ORVANE_SCREEN_FIELDS(F)                                                             \
  F(dots, Dots, std::optional<std::vector<Ref<Dot>>>, "dots", optional, whenPresent, given, \
    observed)
#define ORVANE_SCREEN_MAKE(F) ORVANE_VERSION_COLLECTION_FIELDS(F) ORVANE_SCREEN_FIELDS(F)
  ORVANE_OWN_FIELDS(Screen, VersionCollection, ORVANE_SCREEN_FIELDS, ORVANE_SCREEN_MAKE)

 public:
  /// Takes the collection's fields and the dots, then points the latest version, every listed
  /// version and every dot back at the new screen.
  static Ref<Screen> make(Fields fields);
  /// Reads the collection's members and "dots" from one object (what is no object fails before
  /// anything is read), then wires as `make` does. The project is set when one adopts it.
  static Ref<Screen> decode(const Decoder& decoder);
  /// Writes "dots" (when present) before the collection's members, in one object.
  void encode(Encoder& encoder) const override;
  void visitFields(FieldVisitor& v) const override;
  /// Writes the collection's members and "dots" in one object, as `decode` reads them.
  void encodeDocument(Encoder& encoder) const override;
  /// "dots" beside the members of a version collection.
  static void describeSchema(SchemaVisitor& visitor);

  /// Always "screens".
  std::string pathComponent() const override;
  /// "v2/projects/<project>/screens/<screen>/versions"; a fatal stop without a project.
  std::string versionsPath() const override;
  ///@{

  /// `pathComponent` always; the versions path only while the screen has a project.
  std::optional<std::string> pathComponentIfAvailable() const override;
  std::optional<std::string> versionsPathIfAvailable() const override;
  ///@}

  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editDots(Fn&& fn) {
    std::forward<Fn>(fn)(dots_);
    wireDots();
  }

 private:
  void wire();
  void wireDots();
};

/// The decode-only subset of a screen; every member optional, nothing wired.
class Screen::Partial {
  ORVANE_PARTIAL_FIELDS(ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)
};

}  // namespace orvane
