// Decodes arbitrary bytes as every registered type. The first byte picks the type; the rest is
// the document. Whatever decodes must dump, and what it writes must decode again (as an imported
// document, since many records leave their identifier out) and write the same bytes. Its document
// form must decode into the same fields and write the same bytes again. A snapshot that decodes
// is also drawn, overlays and all, and the drawing must be text XML can hold.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <orvane/handoff/Render.hpp>
#include <orvane/internal/Markup.hpp>

#include "../tools/orvane/Types.hpp"

using namespace orvane;
using namespace orvane::tool;

namespace {

std::string_view padded(std::vector<char>& buffer, std::string_view text) {
  buffer.assign(text.size() + JsonDecoder::kPadding, '\0');
  std::memcpy(buffer.data(), text.data(), text.size());
  return {buffer.data(), text.size()};
}

// A location an error gives must be a place in the text: a line it has, a column within that
// line or just past its end (where a document that ends too early stops).
void checkLocation(const DecodingError& e, std::string_view text) {
  if (!e.location()) return;
  auto [line, column] = *e.location();
  std::size_t start = 0;
  for (std::size_t l = 1; l < line; ++l) {
    std::size_t newline = text.find('\n', start);
    if (newline == std::string_view::npos) {
      std::fprintf(stderr, "error placed past the last line: %s\n", e.what());
      std::abort();
    }
    start = newline + 1;
  }
  std::size_t end = std::min(text.find('\n', start), text.size());
  if (column < 1 || start + column - 1 > end) {
    std::fprintf(stderr, "error placed past its line: %s\n", e.what());
    std::abort();
  }
}

// The drawing holds only UTF-8 and no character XML forbids.
void drawAndCheck(const Snapshot& snapshot) {
  std::string svg = handoff::renderSvg(snapshot, {.links = true, .grid = true, .assets = true});
  for (std::size_t at = 0; at < svg.size();) {
    orvane::detail::CodePoint c = orvane::detail::readCodePoint(svg, at);
    bool forbidden = (c.value < 0x20 && c.value != '\t' && c.value != '\n' && c.value != '\r') ||
                     c.value == 0xFFFE || c.value == 0xFFFF || (c.value == 0xFFFD && c.length == 1);
    if (forbidden) {
      std::fprintf(stderr, "the drawing holds U+%04X at byte %zu\n", unsigned(c.value), at);
      std::abort();
    }
    at += c.length;
  }
}

// The document form of what decoded: it decodes again into a value that lists the same fields,
// and writes the same text again.
void checkDocumentForm(const TypeEntry& type, JsonDecoder& decoder, std::string_view json,
                       const Settings& settings) {
  std::string listed, relisted, document, again;
  try {
    JsonWriter writer(listed);
    JsonFieldWriter fields(writer);
    document = gatheredDocument(type, decoder, json, settings, &fields);
  } catch (const EncodingError& e) {
    std::fprintf(stderr, "%.*s decodes but has no document form: %s\n", int(type.name.size()),
                 type.name.data(), e.what());
    std::abort();
  }
  std::vector<char> buffer;
  try {
    JsonWriter writer(relisted);
    JsonFieldWriter fields(writer);
    again = gatheredDocument(type, decoder, padded(buffer, document), settings, &fields);
  } catch (const DecodingError& e) {
    std::fprintf(stderr, "%.*s refused its document form %s: %s\n", int(type.name.size()),
                 type.name.data(), document.c_str(), e.what());
    std::abort();
  }
  if (relisted != listed || again != document) {
    std::fprintf(stderr, "%.*s document form changed\n  %s\n  %s\n  %s\n  %s\n",
                 int(type.name.size()), type.name.data(), listed.c_str(), relisted.c_str(),
                 document.c_str(), again.c_str());
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  auto types = registeredTypes();
  const TypeEntry& type = types[data[0] % types.size()];
  std::vector<char> buffer;
  std::string_view json = padded(buffer, {reinterpret_cast<const char*>(data + 1), size - 1});

  // Made once, as the tool makes one per run: inputs then reuse the parser's buffers and chunks.
  static const Settings plain{};
  static const Settings imported = [] {
    Settings s;
    s.decoding.userInfo[CodingUserInfoKey::fromImportSource()] = true;
    return s;
  }();
  static JsonDecoder plainDecoder(plain.decoding);
  static JsonDecoder importedDecoder(imported.decoding);

  std::string written;
  try {
    (void)gathered(type.dump, plainDecoder, json, plain);
    checkDocumentForm(type, plainDecoder, json, plain);
    if (!type.decode) return 0;
    written = gathered(type.decode, plainDecoder, json, plain);
    if (type.name == "Snapshot") drawAndCheck(*plainDecoder.decodePadded<Ref<Snapshot>>(json));
  } catch (const DecodingError& e) {
    checkLocation(e, json);
    return 0;
  } catch (const EncodingError&) {
    return 0;  // values that read fine but cannot be written (a rectangle whose size overflows)
  }

  std::string again;
  try {
    again = gathered(type.decode, importedDecoder, padded(buffer, written), imported);
  } catch (const DecodingError& e) {
    // A member the record never writes is the only acceptable reason to refuse its own output.
    if (e.kind() == DecodingError::Kind::keyNotFound) return 0;
    std::fprintf(stderr, "%.*s refused its own output %s: %s\n", int(type.name.size()),
                 type.name.data(), written.c_str(), e.what());
    std::abort();
  }
  if (again != written) {
    std::fprintf(stderr, "%.*s round trip changed\n  %s\n  %s\n", int(type.name.size()),
                 type.name.data(), written.c_str(), again.c_str());
    std::abort();
  }
  return 0;
}
