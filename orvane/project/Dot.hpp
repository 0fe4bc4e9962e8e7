// A conversation pinned at a point of a screen.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User.hpp>
#include <orvane/project/Comment.hpp>

namespace orvane {

class Screen;

/// Owns its comments and points each back at itself; refers weakly to the screen it sits on.
class Dot : public std::enable_shared_from_this<Dot> {
 public:
  enum class Status { open, resolved };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view status = "status";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view creator = "creator";
    static constexpr std::string_view x = "x";
    static constexpr std::string_view y = "y";
    static constexpr std::string_view color = "color";
    static constexpr std::string_view comments = "comments";
  };

  class Partial;

  Dot(Passkey<Dot>, Identifier identifier, std::optional<Status> status, std::string name,
      Ref<User> creator, double x, double y, Ref<Color> color, std::vector<Ref<Comment>> comments);

  static Ref<Dot> make(std::optional<Status> status, std::string name, Ref<User> creator, double x,
                       double y, Ref<Color> color, std::vector<Ref<Comment>> comments,
                       Identifier identifier = Identifier::local());
  /// An unknown "status" gives a dot without status, never a failure.
  static Ref<Dot> decode(const Decoder& decoder);
  /// Writes the position, the color and the comments, nothing else.
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  std::optional<Status> status() const { return status_; }
  void setStatus(std::optional<Status> value) { status_ = value; }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const Ref<User>& creator() const { return creator_; }
  void setCreator(Ref<User> value) { creator_ = std::move(value); }
  double x() const { return x_; }
  void setX(double value) { x_ = value; }
  double y() const { return y_; }
  void setY(double value) { y_ = value; }
  const Ref<Color>& color() const { return color_; }
  void setColor(Ref<Color> value) { color_ = std::move(value); }
  const std::vector<Ref<Comment>>& comments() const { return comments_; }
  /// Stores the list and points every comment back here; removed comments keep theirs.
  void setComments(std::vector<Ref<Comment>> value);
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editComments(Fn&& fn) {
    std::forward<Fn>(fn)(comments_);
    wireComments();
  }
  /// The screen this dot sits on; set by that screen, empty once it is gone.
  Ref<Screen> screen() const { return screen_.lock(); }
  void setScreen(const Ref<Screen>& value) { screen_ = value; }

 private:
  void wireComments();

  Identifier identifier_;
  std::optional<Status> status_;
  std::string name_;
  Ref<User> creator_;
  double x_;
  double y_;
  Ref<Color> color_;
  std::vector<Ref<Comment>> comments_;
  WeakRef<Screen> screen_;
};

template <>
struct EnumTraits<Dot::Status> {
  static constexpr std::string_view typeName = "Status";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Dot::Status>, 2> cases{{
      {Dot::Status::open, "open", "open"},
      {Dot::Status::resolved, "resolved", "resolved"},
  }};
};

}  // namespace orvane
