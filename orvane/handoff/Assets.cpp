#include <orvane/handoff/Assets.hpp>

#include <array>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/internal/Markup.hpp>

namespace orvane::handoff {

namespace {

using Format = Asset::Content::Format;

// A density as each platform names it: iOS and the web by scale, Android by bucket. iOS has
// no bucket between 1x and 2x nor above 3x.
struct Bucket {
  Density density;
  std::string_view ios;  // "" for 1x; empty view when iOS has none
  bool onIos;
  std::string_view android;  // mdpi ... xxxhdpi
  std::string_view web;      // "" for 1x, else "@2x" ...
};

constexpr std::array<Bucket, 8> kBuckets{{
    {Density::_1x, "", true, "mdpi", ""},
    {Density::mdpi, "", true, "mdpi", ""},
    {Density::hdpi, "", false, "hdpi", "@1.5x"},
    {Density::_2x, "@2x", true, "xhdpi", "@2x"},
    {Density::xhdpi, "@2x", true, "xhdpi", "@2x"},
    {Density::_3x, "@3x", true, "xxhdpi", "@3x"},
    {Density::xxhdpi, "@3x", true, "xxhdpi", "@3x"},
    {Density::xxxhdpi, "", false, "xxxhdpi", "@4x"},
}};

const Bucket& bucket(Density density) {
  for (const auto& b : kBuckets) {
    if (b.density == density) return b;
  }
  return kBuckets[0];
}

std::string scaleName(std::string_view suffix) {
  return suffix.empty() ? "1x" : std::string(suffix.substr(1));
}

// Android refuses a resource named like a Java keyword or literal.
bool javaReserved(std::string_view name) {
  static const std::unordered_set<std::string_view> kReserved = {
      "abstract",  "assert",       "boolean",  "break",      "byte",    "case",       "catch",
      "char",      "class",        "const",    "continue",   "default", "do",         "double",
      "else",      "enum",         "extends",  "false",      "final",   "finally",    "float",
      "for",       "goto",         "if",       "implements", "import",  "instanceof", "int",
      "interface", "long",         "native",   "new",        "null",    "package",    "private",
      "protected", "public",       "return",   "short",      "static",  "strictfp",   "super",
      "switch",    "synchronized", "this",     "throw",      "throws",  "transient",  "true",
      "try",       "void",         "volatile", "while"};
  return kReserved.count(name) != 0;
}

// The snake-case resource name of a file name (letters, digits and `-`, from a letter).
std::string androidName(const std::string& name) {
  std::string out = name;
  for (char& c : out) {
    if (c == '-') c = '_';
  }
  // No name made here ends in `_`, so the suffix keeps it unique.
  if (javaReserved(out)) out += '_';
  return out;
}

// Hands out names once each, `-2`, `-3` after one already given, in time linear in the
// names however many share one.
class Names {
 public:
  std::string take(const std::string& name) {
    std::string candidate = name;
    std::size_t& next = next_[name];
    if (next == 0) next = 2;
    while (!taken_.insert(candidate).second) candidate = name + "-" + std::to_string(next++);
    return candidate;
  }

 private:
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, std::size_t> next_;
};

// Adds a file unless the platform has that path already.
void add(std::vector<ExportFile>& files, std::string path, std::string density,
         const std::optional<Url>& url) {
  for (const auto& f : files) {
    if (f.path == path) return;
  }
  files.push_back({std::move(path), std::move(density), url});
}

void addContent(Export& e, const Asset::Content& content) {
  if (!content.format()) return;
  const std::string& name = e.name;
  std::string android = androidName(name);
  const std::optional<Url>& url = content.url();
  switch (*content.format()) {
    case Format::svg:
      add(e.ios, name + ".svg", "", url);
      add(e.android, "drawable/" + android + ".xml", "", url);
      add(e.web, name + ".svg", "", url);
      return;
    case Format::pdf:
      // Neither Android nor the web draws a PDF as an image.
      add(e.ios, name + ".pdf", "", url);
      return;
    case Format::png:
    case Format::jpg:
      break;
  }
  std::string ext = *content.format() == Format::png ? ".png" : ".jpg";
  const Bucket& b = bucket(content.density().value_or(Density::_1x));
  if (b.onIos) add(e.ios, name + std::string(b.ios) + ext, scaleName(b.ios), url);
  add(e.android, "drawable-" + std::string(b.android) + "/" + android + ext, std::string(b.android),
      url);
  add(e.web, name + std::string(b.web) + ext, scaleName(b.web), url);
}

// An exportable layer is drawn as a PNG at 1x, 2x and 3x, and at every Android bucket.
void addLayerFiles(Export& e) {
  std::string android = androidName(e.name);
  for (std::string_view s : {"", "@2x", "@3x"}) {
    add(e.ios, e.name + std::string(s) + ".png", scaleName(s), std::nullopt);
    add(e.web, e.name + std::string(s) + ".png", scaleName(s), std::nullopt);
  }
  for (std::string_view d : {"mdpi", "hdpi", "xhdpi", "xxhdpi", "xxxhdpi"}) {
    add(e.android, "drawable-" + std::string(d) + "/" + android + ".png", std::string(d),
        std::nullopt);
  }
}

}  // namespace

std::vector<Export> exportsOf(const Snapshot& snapshot) {
  std::vector<Ref<Layer>> layers = allLayers(snapshot);
  std::unordered_map<std::string_view, Ref<Layer>> byIdentifier;
  for (const auto& layer : layers) byIdentifier.emplace(layer->identifier().rawValue(), layer);

  std::vector<Export> exports;
  Names names;
  std::unordered_set<const Layer*> covered;
  std::unordered_set<std::string_view> coveredNames;  // of assets that name no identifier
  if (snapshot.assets()) {
    for (const auto& asset : *snapshot.assets()) {
      if (!asset) continue;
      Export e;
      e.asset = asset;
      if (asset->layerIdentifier()) {
        auto it = byIdentifier.find(asset->layerIdentifier()->rawValue());
        if (it != byIdentifier.end()) {
          e.layer = it->second;
          covered.insert(e.layer.get());
        }
      } else {
        coveredNames.insert(asset->layerName());
      }
      e.name = names.take(slug(asset->displayName(), "asset", "a-"));
      for (const auto& content : asset->contents()) {
        if (content) addContent(e, *content);
      }
      exports.push_back(std::move(e));
    }
  }
  for (const auto& layer : layers) {
    if (!layer->isExportable() || covered.count(layer.get()) || coveredNames.count(layer->name())) {
      continue;
    }
    Export e;
    e.layer = layer;
    e.name = names.take(slug(layer->name(), "layer", "l-"));
    addLayerFiles(e);
    exports.push_back(std::move(e));
  }
  return exports;
}

namespace {

std::string json(std::string_view text) {
  std::string out;
  detail::appendJsonString(out, text);
  return out;
}

std::vector<InspectNode> fileNodes(const std::vector<ExportFile>& files) {
  std::vector<InspectNode> nodes;
  for (const auto& f : files) {
    InspectNode n{f.path + (f.url ? " from " + std::string(f.url->text()) : ""), {}, {}};
    n.facts.emplace_back("file", json(f.path));
    n.facts.emplace_back("density", f.density.empty() ? "null" : json(f.density));
    n.facts.emplace_back("url", f.url ? json(f.url->text()) : "null");
    nodes.push_back(std::move(n));
  }
  return nodes;
}

void addFileLists(InspectNode& n, const Export& e) {
  n.lists.emplace_back("ios", fileNodes(e.ios));
  n.lists.emplace_back("android", fileNodes(e.android));
  n.lists.emplace_back("web", fileNodes(e.web));
}

template <class E>
std::string rawOrNull(const std::optional<E>& value) {
  return value ? json(rawValue(*value)) : "null";
}

InspectNode assetNode(const Export& e) {
  const Asset& asset = *e.asset;
  std::string from = asset.layerName();
  if (asset.layerIdentifier())
    from += " (" + std::string(asset.layerIdentifier()->rawValue()) + ")";
  InspectNode n{"asset " + asset.displayName() + " from " + from +
                    (asset.isBitmap() ? ", bitmap" : ", not a bitmap") + ", files " + e.name,
                {},
                {}};
  n.facts.emplace_back("displayName", json(asset.displayName()));
  n.facts.emplace_back("layerName", json(asset.layerName()));
  n.facts.emplace_back("layerIdentifier", asset.layerIdentifier()
                                              ? json(asset.layerIdentifier()->rawValue())
                                              : "null");
  n.facts.emplace_back("isBitmap", asset.isBitmap() ? "true" : "false");
  n.facts.emplace_back("fileName", json(e.name));
  std::vector<InspectNode> contents;
  for (const auto& c : asset.contents()) {
    if (!c) continue;
    std::string line = c->format() ? std::string(rawValue(*c->format())) : "unknown format";
    if (c->density()) line += " at " + std::string(rawValue(*c->density()));
    if (c->url()) line += ", " + std::string(c->url()->text());
    InspectNode cn{std::move(line), {}, {}};
    cn.facts.emplace_back("density", rawOrNull(c->density()));
    cn.facts.emplace_back("format", rawOrNull(c->format()));
    cn.facts.emplace_back("url", c->url() ? json(c->url()->text()) : "null");
    contents.push_back(std::move(cn));
  }
  n.lists.emplace_back("contents", std::move(contents));
  addFileLists(n, e);
  return n;
}

InspectNode layerNode(const Export& e) {
  const Layer& layer = *e.layer;
  InspectNode n{"layer " + layer.name() + " (" + std::string(layer.identifier().rawValue()) +
                    "), files " + e.name,
                {},
                {}};
  n.facts.emplace_back("identifier", json(layer.identifier().rawValue()));
  n.facts.emplace_back("name", json(layer.name()));
  n.facts.emplace_back("fileName", json(e.name));
  addFileLists(n, e);
  return n;
}

std::string counted(std::size_t n, std::string_view one, std::string_view many) {
  return std::to_string(n) + " " + std::string(n == 1 ? one : many);
}

}  // namespace

InspectNode inspectAssets(const Snapshot& snapshot) {
  std::vector<InspectNode> assets, layers;
  for (const auto& e : exportsOf(snapshot)) {
    if (e.asset) {
      assets.push_back(assetNode(e));
    } else {
      layers.push_back(layerNode(e));
    }
  }
  InspectNode root{"snapshot " + std::string(snapshot.identifier().rawValue()) + ": " +
                       counted(assets.size(), "asset", "assets") + ", " +
                       counted(layers.size(), "exportable layer", "exportable layers"),
                   {},
                   {}};
  root.facts.emplace_back("identifier", json(snapshot.identifier().rawValue()));
  root.lists.emplace_back("assets", std::move(assets));
  root.lists.emplace_back("layers", std::move(layers));
  return root;
}

}  // namespace orvane::handoff
