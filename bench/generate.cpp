#include "generate.hpp"

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include <orvane/internal/JsonWriter.hpp>

namespace orvane::bench {

namespace {

class Generator {
 public:
  Generator(std::string& out, std::uint64_t seed) : w_(out), rng_(seed) {}

  void snapshot(int layerCount = 120) {
    w_.beginObject();
    w_.key("_id");
    id("snap");
    w_.key("width");
    w_.number(pick({375, 390, 414, 1440, 1920}));
    w_.key("height");
    w_.number(between(600, 3000));
    w_.key("url");
    w_.string("https://cdn.example.com/snapshots/" + hex(24) + ".png");
    w_.key("density");
    w_.string(pick<std::string>({"1x", "2x", "3x", "xhdpi"}));
    w_.key("source");
    w_.string(pick<std::string>({"sketch", "figma", "psd", "xd"}));
    w_.key("componentNames");
    w_.beginArray();
    for (int i = 0; i < 3; ++i) w_.string("Component " + std::to_string(i));
    w_.endArray();
    w_.key("backgroundColor");
    color();
    w_.key("grid");
    grid();
    w_.key("assets");
    w_.beginArray();
    for (int i = 0, n = int(between(2, 8)); i < n; ++i) asset();
    w_.endArray();
    w_.key("layers");
    budget_ = layerCount;
    layers(0);
    w_.key("links");
    w_.beginArray();
    for (int i = 0, n = int(between(1, 6)); i < n; ++i) link();
    w_.endArray();
    w_.endObject();
  }

  void beginArray() { w_.beginArray(); }
  void endArray() { w_.endArray(); }
  // The writer runs ahead of the text in `out`; this is the text's length.
  std::size_t size() const { return w_.size(); }

  // A whole project: screens with their versions and dots, sections naming the screens, a
  // component tree, a style guide and members. Screens take most of the bytes, as they do in the
  // service's documents; the component tree gets about a tenth.
  void project(std::size_t targetBytes) {
    w_.beginObject();
    w_.key("_id");
    id("project");
    w_.key("status");
    w_.string("active");
    w_.key("name");
    w_.string("Project " + hex(6));
    w_.key("description");
    w_.string("Generated project for measurements");
    w_.key("icon");
    w_.beginObject();
    w_.key("type");
    w_.string(pick<std::string>({"rocket", "pear", "paw", "custom"}));
    w_.endObject();
    w_.key("created");
    date();
    w_.key("updated");
    date();
    w_.key("type");
    w_.string(pick<std::string>({"ios", "android", "web", "osx"}));
    w_.key("density");
    w_.string("2x");
    w_.key("public");
    w_.boolean(false);

    // Screens first: the sections that follow name them.
    const std::size_t start = w_.size();
    const std::size_t screenBytes = targetBytes * 85 / 100;
    std::vector<std::string> screenIds;
    w_.key("screens");
    w_.beginArray();
    do {
      screenIds.push_back(hex(24));
      screen(screenIds.back());
    } while (w_.size() - start < screenBytes);
    w_.endArray();
    const std::size_t perScreen = (w_.size() - start) / screenIds.size();

    w_.key("sections");
    w_.beginArray();
    for (std::size_t i = 0; i < screenIds.size(); i += 12) {
      w_.beginObject();
      w_.key("_id");
      id("section");
      w_.key("name");
      w_.string("Flow " + std::to_string(i / 12 + 1));
      if (chance(0.5)) {
        w_.key("description");
        w_.string("Screens of one flow");
      }
      w_.key("screens");
      w_.beginArray();
      for (std::size_t j = i; j < std::min(i + 12, screenIds.size()); ++j) w_.string(screenIds[j]);
      w_.endArray();
      w_.endObject();
    }
    w_.endArray();

    w_.key("colors");
    w_.beginArray();
    for (int i = 0; i < 24; ++i) {
      w_.beginObject();
      w_.key("_id");
      id("color");
      w_.key("name");
      w_.string("Color " + std::to_string(i));
      colorMembers();
      w_.endObject();
    }
    w_.endArray();

    w_.key("textStyles");
    w_.beginArray();
    for (int i = 0; i < 12; ++i) {
      w_.beginObject();
      w_.key("_id");
      id("textStyle");
      w_.key("name");
      w_.string("Text " + std::to_string(i));
      w_.key("sourceId");
      w_.string(hex(12));
      textStyleMembers();
      w_.endObject();
    }
    w_.endArray();

    // Three top-level sections, each with two below, each with two below that: 21 sections
    // sharing the components, so that component paths run three levels deep.
    std::size_t components = std::max<std::size_t>(3, targetBytes / 10 / (perScreen * 4 / 5 + 1));
    componentsLeft_ = components;
    w_.key("componentSections");
    w_.beginArray();
    for (int i = 0; i < 3; ++i) componentSection(0, components / 21 + 1);
    w_.endArray();

    w_.key("users");
    w_.beginArray();
    for (int i = 0; i < 16; ++i) {
      w_.beginObject();
      w_.key("user");
      user();
      w_.key("role");
      w_.string(pick<std::string>({"owner", "admin", "user", "queen"}));
      w_.key("tags");
      w_.beginArray();
      if (chance(0.5)) w_.string("design");
      w_.endArray();
      w_.endObject();
    }
    w_.endArray();

    w_.key("thumbnail");
    w_.string("https://cdn.example.com/thumbnails/" + hex(24) + ".png");
    w_.key("integration");
    w_.beginObject();
    w_.key("slacks");
    w_.beginArray();
    w_.beginObject();
    w_.key("_id");
    id("slack");
    w_.key("incomingWebHook");
    w_.beginObject();
    w_.key("channel");
    w_.string("#design");
    w_.key("configurationURL");
    w_.string("https://chat.example.com/services/" + hex(16));
    w_.endObject();
    w_.key("scope");
    w_.string("incoming-webhook");
    w_.endObject();
    w_.endArray();
    w_.endObject();
    w_.endObject();
  }

 private:
  void date() {
    char text[32];
    std::snprintf(text, sizeof text, "2024-%02d-%02dT%02d:%02d:%02dZ", int(intBetween(1, 12)),
                  int(intBetween(1, 28)), int(intBetween(0, 23)), int(intBetween(0, 59)),
                  int(intBetween(0, 59)));
    w_.string(text);
  }

  void user() {
    w_.beginObject();
    w_.key("_id");
    id("user");
    w_.key("email");
    w_.string("person." + hex(6) + "@example.com");
    w_.key("username");
    w_.string("person" + hex(4));
    w_.key("emotar");
    w_.string(pick<std::string>({"sunglasses", "pizza", "tv", "ghost", "koala"}));
    w_.key("avatar");
    w_.string("https://cdn.example.com/avatars/" + hex(16) + ".png");
    w_.key("status");
    w_.string("verified");
    w_.endObject();
  }

  void version() {
    w_.beginObject();
    w_.key("_id");
    id("version");
    if (chance(0.7)) {
      w_.key("commit");
      w_.beginObject();
      w_.key("author");
      user();
      w_.key("message");
      w_.string("Update " + hex(8));
      w_.key("color");
      color();
      w_.endObject();
    }
    w_.key("creator");
    user();
    w_.key("snapshot");
    snapshot();
    w_.key("created");
    date();
    w_.key("fullSnapshotUrl");
    w_.string("https://cdn.example.com/full/" + hex(24) + ".png");
    w_.endObject();
  }

  // The members a screen and a component share.
  void collectionMembers(const std::string& identifier) {
    w_.key("_id");
    w_.string(identifier);
    w_.key("name");
    w_.string("Screen " + hex(6));
    if (chance(0.5)) {
      w_.key("description");
      w_.string("Notes on " + hex(6));
    }
    w_.key("latestVersion");
    version();
    w_.key("sourceId");
    w_.string(hex(8));
    w_.key("tags");
    w_.beginArray();
    w_.string("tag-" + hex(3));
    w_.endArray();
    w_.key("versions");
    w_.beginArray();
    for (int i = 0, n = int(intBetween(1, 3)); i < n; ++i) version();
    w_.endArray();
  }

  void screen(const std::string& identifier) {
    w_.beginObject();
    collectionMembers(identifier);
    w_.key("dots");
    w_.beginArray();
    for (int i = 0, n = int(intBetween(0, 3)); i < n; ++i) {
      w_.beginObject();
      w_.key("_id");
      id("dot");
      w_.key("status");
      w_.string(pick<std::string>({"open", "resolved"}));
      w_.key("name");
      w_.string("Dot " + hex(4));
      w_.key("creator");
      user();
      w_.key("x");
      w_.number(rounded(between(0, 400)));
      w_.key("y");
      w_.number(rounded(between(0, 800)));
      w_.key("color");
      color();
      w_.key("comments");
      w_.beginArray();
      for (int j = 0, m = int(intBetween(1, 4)); j < m; ++j) {
        w_.beginObject();
        w_.key("_id");
        id("comment");
        w_.key("note");
        w_.string("Could this be " + hex(10) + "?");
        w_.key("author");
        user();
        w_.key("created");
        date();
        w_.key("updated");
        date();
        w_.endObject();
      }
      w_.endArray();
      w_.endObject();
    }
    w_.endArray();
    w_.endObject();
  }

  void componentSection(int depth, std::size_t perSection) {
    w_.beginObject();
    w_.key("_id");
    id("componentSection");
    w_.key("name");
    w_.string("Components " + hex(4));
    if (depth < 2) {
      w_.key("componentSections");
      w_.beginArray();
      for (int i = 0; i < 2; ++i) componentSection(depth + 1, perSection);
      w_.endArray();
    }
    w_.key("components");
    w_.beginArray();
    for (std::size_t i = 0; i < perSection && componentsLeft_ > 0; ++i, --componentsLeft_) {
      w_.beginObject();
      collectionMembers(hex(24));
      w_.endObject();
    }
    w_.endArray();
    w_.endObject();
  }

  std::size_t componentsLeft_ = 0;

 public:

 private:
  double between(double lo, double hi) {
    return std::uniform_real_distribution<double>(lo, hi)(rng_);
  }
  std::int64_t intBetween(std::int64_t lo, std::int64_t hi) {
    return std::uniform_int_distribution<std::int64_t>(lo, hi)(rng_);
  }
  bool chance(double p) { return between(0, 1) < p; }
  template <class T>
  T pick(std::initializer_list<T> items) {
    return *(items.begin() + intBetween(0, std::int64_t(items.size()) - 1));
  }
  double pick(std::initializer_list<double> items) { return pick<double>(items); }
  std::string hex(int n) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string s;
    for (int i = 0; i < n; ++i) s += digits[intBetween(0, 15)];
    return s;
  }
  void id(const char*) { w_.string(hex(24)); }
  double rounded(double v) { return double(std::int64_t(v * 100)) / 100; }

  void color() {
    w_.beginObject();
    colorMembers();
    w_.endObject();
  }

  void colorMembers() {
    w_.key("r");
    w_.number(rounded(between(0, 1)));
    w_.key("g");
    w_.number(rounded(between(0, 1)));
    w_.key("b");
    w_.number(rounded(between(0, 1)));
    w_.key("a");
    w_.number(chance(0.8) ? 1 : rounded(between(0, 1)));
  }

  void rect(double maxX, double maxY) {
    w_.beginObject();
    w_.key("x");
    w_.number(rounded(between(0, maxX)));
    w_.key("y");
    w_.number(rounded(between(0, maxY)));
    w_.key("width");
    w_.number(rounded(between(4, 400)));
    w_.key("height");
    w_.number(rounded(between(4, 300)));
    w_.endObject();
  }

  void grid() {
    w_.beginObject();
    w_.key("horizontalOffset");
    w_.number(16);
    w_.key("vertical");
    w_.beginObject();
    w_.key("columnWidth");
    w_.number(rounded(between(40, 90)));
    w_.key("numberOfCols");
    w_.integer(12);
    w_.key("gutterWidth");
    w_.number(16);
    w_.key("guttersOnOutside");
    w_.boolean(true);
    w_.endObject();
    w_.key("horizontal");
    w_.beginObject();
    w_.key("rowHeight");
    w_.number(8);
    w_.key("gutterHeight");
    w_.number(0);
    w_.endObject();
    w_.endObject();
  }

  void asset() {
    w_.beginObject();
    w_.key("_id");
    id("asset");
    w_.key("displayName");
    w_.string("icon-" + hex(6));
    w_.key("layerName");
    w_.string("Icon / " + hex(4));
    w_.key("layerId");
    w_.string(hex(24));
    w_.key("isBitmap");
    w_.boolean(chance(0.3));
    w_.key("contents");
    w_.beginArray();
    for (const char* density : {"1x", "2x", "3x"}) {
      w_.beginObject();
      w_.key("url");
      w_.string("https://cdn.example.com/assets/" + hex(20) + "@" + density + ".png");
      w_.key("density");
      w_.string(density);
      w_.key("format");
      w_.string(pick<std::string>({"png", "svg", "pdf"}));
      w_.endObject();
    }
    w_.endArray();
    w_.endObject();
  }

  void link() {
    w_.beginObject();
    w_.key("sourceId");
    w_.string(hex(24));
    w_.key("rect");
    rect(1000, 2000);
    w_.key("destination");
    w_.beginObject();
    w_.key("type");
    if (chance(0.8)) {
      w_.string("screen");
      w_.key("name");
      w_.string("Screen " + hex(4));
    } else {
      w_.string("previous");
    }
    w_.endObject();
    w_.endObject();
  }

  // The members of a fill; a border writes them into its own object.
  void fillMembers() {
    if (chance(0.8)) {
      w_.key("fillType");
      w_.string("color");
      w_.key("color");
      color();
    } else {
      w_.key("fillType");
      w_.string("gradient");
      w_.key("gradient");
      w_.beginObject();
      w_.key("type");
      w_.string(pick<std::string>({"linear", "radial", "angular"}));
      w_.key("from");
      w_.beginObject();
      w_.key("x");
      w_.number(0.5);
      w_.key("y");
      w_.number(0);
      w_.endObject();
      w_.key("to");
      w_.beginObject();
      w_.key("x");
      w_.number(0.5);
      w_.key("y");
      w_.number(1);
      w_.endObject();
      w_.key("colorStops");
      w_.beginArray();
      for (double position : {0.0, 1.0}) {
        w_.beginObject();
        w_.key("position");
        w_.number(position);
        w_.key("color");
        color();
        w_.endObject();
      }
      w_.endArray();
      w_.endObject();
    }
    w_.key("opacity");
    w_.number(1);
    if (chance(0.2)) {
      w_.key("blendMode");
      w_.string(pick<std::string>({"multiply", "screen", "overlay", "color-burn"}));
    }
  }

  void textStyle() {
    w_.beginObject();
    textStyleMembers();
    w_.endObject();
  }

  void textStyleMembers() {
    w_.key("fontFace");
    w_.string(pick<std::string>({"Inter-Regular", "Inter-Bold", "SFProText-Medium"}));
    w_.key("fontSize");
    w_.number(pick({12, 14, 16, 20, 32}));
    w_.key("lineHeight");
    w_.number(pick({16, 20, 24, 40}));
    w_.key("letterSpacing");
    w_.number(rounded(between(-0.5, 0.5)));
    w_.key("color");
    color();
    w_.key("textAlign");
    w_.string(pick<std::string>({"left", "center", "right"}));
  }

  void layer(int depth) {
    --budget_;
    w_.beginObject();
    w_.key("_id");
    id("layer");
    w_.key("name");
    w_.string("Layer " + hex(6));
    w_.key("sourceId");
    w_.string(hex(8) + "-" + hex(4) + "-" + hex(4) + "-" + hex(12));
    double roll = between(0, 1);
    bool group = depth < 5 && budget_ > 4 && roll < 0.22;
    bool text = !group && roll < 0.55;
    w_.key("type");
    if (group) {
      w_.string("group");
      w_.key("layers");
      layers(depth + 1);
      if (chance(0.3)) {
        w_.key("componentName");
        w_.string("Component " + std::to_string(intBetween(0, 20)));
      }
      if (chance(0.7)) {
        w_.key("interactionLevel");
        w_.string(pick<std::string>({"top", "bottom"}));
      }
    } else if (text) {
      w_.string("text");
      std::string content = "Lorem ipsum dolor sit amet " + hex(int(intBetween(4, 40)));
      w_.key("content");
      w_.string(content);
      w_.key("textStyles");
      w_.beginArray();
      std::int64_t at = 0;
      for (int i = 0, n = int(intBetween(1, 3)); i < n; ++i) {
        std::int64_t length = intBetween(1, 12);
        w_.beginObject();
        w_.key("range");
        w_.beginObject();
        w_.key("location");
        w_.integer(at);
        w_.key("length");
        w_.integer(length);
        w_.endObject();
        w_.key("style");
        textStyle();
        w_.endObject();
        at += length;
      }
      w_.endArray();
    } else {
      w_.string("shape");
    }
    w_.key("rect");
    rect(1200, 2400);
    if (chance(0.1)) {
      w_.key("rotation");
      w_.number(pick({90, 180, 45}));
    }
    w_.key("borderRadius");
    w_.number(pick({0, 0, 4, 8}));
    w_.key("opacity");
    w_.number(chance(0.9) ? 1 : 0.5);
    if (chance(0.1)) {
      w_.key("blendMode");
      w_.string("multiply");
    }
    if (chance(0.05)) {
      w_.key("blur");
      w_.beginObject();
      w_.key("type");
      w_.string("gaussian");
      w_.key("radius");
      w_.number(4);
      w_.endObject();
    }
    w_.key("exportable");
    w_.boolean(chance(0.1));
    if (!group) {
      w_.key("fills");
      w_.beginArray();
      for (int i = 0, n = int(intBetween(1, 2)); i < n; ++i) {
        w_.beginObject();
        fillMembers();
        w_.endObject();
      }
      w_.endArray();
      if (chance(0.4)) {
        w_.key("borders");
        w_.beginArray();
        w_.beginObject();
        w_.key("position");
        w_.string(pick<std::string>({"inside", "center", "outside"}));
        w_.key("thickness");
        w_.number(1);
        fillMembers();
        w_.endObject();
        w_.endArray();
      }
      if (chance(0.3)) {
        w_.key("shadows");
        w_.beginArray();
        w_.beginObject();
        w_.key("type");
        w_.string("outer");
        w_.key("offsetX");
        w_.number(0);
        w_.key("offsetY");
        w_.number(2);
        w_.key("blurRadius");
        w_.number(8);
        w_.key("spread");
        w_.number(0);
        w_.key("color");
        color();
        w_.endObject();
        w_.endArray();
      }
    }
    w_.endObject();
  }

  void layers(int depth) {
    w_.beginArray();
    int n = depth == 0 ? 8 : int(intBetween(2, 7));
    for (int i = 0; i < n && (budget_ > 0 || i == 0); ++i) layer(depth);
    if (depth == 0) {
      while (budget_ > 0) layer(0);
    }
    w_.endArray();
  }

  JsonWriter w_;
  std::mt19937_64 rng_;
  int budget_ = 0;
};

}  // namespace

std::string generateProject(std::size_t targetBytes, std::uint64_t seed) {
  std::string out;
  out.reserve(targetBytes + (4 << 20));
  Generator g(out, seed);
  g.project(targetBytes);
  return out;
}

std::string generateSnapshots(std::size_t targetBytes, std::uint64_t seed) {
  std::string out;
  out.reserve(targetBytes + (1 << 20));
  Generator g(out, seed);
  g.beginArray();
  do {
    g.snapshot();
  } while (g.size() < targetBytes);
  g.endArray();
  return out;
}

}  // namespace orvane::bench

namespace orvane::bench {

std::string generateSnapshot(int layerCount, std::uint64_t seed) {
  std::string out;
  out.reserve(std::size_t(layerCount) * 700 + (1 << 16));
  Generator g(out, seed);
  g.snapshot(layerCount);
  return out;
}

}  // namespace orvane::bench
