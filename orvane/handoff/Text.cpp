#include <orvane/handoff/Text.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <limits>
#include <set>

#include <orvane/internal/Markup.hpp>

namespace orvane::handoff {

namespace {

bool equalNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

bool endsWithNoCase(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() &&
         equalNoCase(text.substr(text.size() - suffix.size()), suffix);
}

struct WeightName {
  std::string_view name;
  int weight;
};
constexpr std::array<WeightName, 9> kWeights{{{"Thin", 100},
                                              {"ExtraLight", 200},
                                              {"Light", 300},
                                              {"Regular", 400},
                                              {"Medium", 500},
                                              {"SemiBold", 600},
                                              {"Bold", 700},
                                              {"ExtraBold", 800},
                                              {"Black", 900}}};

// Where each UTF-16 offset of `content` falls, as a byte offset; an offset inside a surrogate
// pair falls after the pair.
std::vector<std::size_t> utf16Offsets(std::string_view content) {
  std::vector<std::size_t> bytes;
  bytes.reserve(content.size() + 1);
  std::size_t at = 0;
  while (at < content.size()) {
    detail::CodePoint c = detail::readCodePoint(content, at);
    bytes.push_back(at);
    if (c.value >= 0x10000) bytes.push_back(at + c.length);
    at += c.length;
  }
  bytes.push_back(content.size());
  return bytes;
}

}  // namespace

FontFace fontFace(std::string_view fontName) {
  FontFace face;
  std::size_t dash = fontName.rfind('-');
  if (dash == std::string_view::npos) {
    face.family = std::string(fontName);
    return face;
  }
  std::string_view rest = fontName.substr(dash + 1);
  if (endsWithNoCase(rest, "Italic")) {
    face.italic = true;
    rest.remove_suffix(6);
  }
  for (const auto& w : kWeights) {
    if (equalNoCase(rest, w.name)) face.weight = w.weight;
  }
  face.family = std::string(fontName.substr(0, dash));
  return face;
}

std::vector<TextRun> textRuns(std::string_view content,
                              const std::vector<Ref<RangedTextStyle>>& styles) {
  const std::vector<std::size_t> bytes = utf16Offsets(content);
  const auto units = static_cast<std::int64_t>(bytes.size() - 1);
  // Each range as a start and an end event over UTF-16 offsets.
  struct Event {
    std::int64_t at;
    bool start;
    std::size_t index;
  };
  std::vector<Event> events;
  for (std::size_t i = 0; i < styles.size(); ++i) {
    if (!styles[i] || !styles[i]->textStyle()) continue;
    const Range& r = styles[i]->range();
    std::int64_t length = std::max<std::int64_t>(r.length, 0);
    bool overflows =
        r.location > 0 && length > std::numeric_limits<std::int64_t>::max() - r.location;
    std::int64_t begin = std::clamp<std::int64_t>(r.location, 0, units);
    std::int64_t end =
        std::clamp<std::int64_t>(overflows ? units : r.location + length, begin, units);
    if (bytes[begin] == bytes[end]) continue;
    events.push_back({begin, true, i});
    events.push_back({end, false, i});
  }
  std::sort(events.begin(), events.end(),
            [&](const Event& a, const Event& b) { return bytes[a.at] < bytes[b.at]; });

  std::vector<TextRun> runs;
  auto add = [&](std::size_t begin, std::size_t end, const Ref<TextStyle>& style) {
    if (begin >= end) return;
    if (!runs.empty() && runs.back().style == style && runs.back().end == begin) {
      runs.back().end = end;
    } else {
      runs.push_back({begin, end, style});
    }
  };
  std::set<std::size_t> active;
  std::size_t at = 0;
  for (std::size_t e = 0; e < events.size();) {
    std::size_t here = bytes[events[e].at];
    add(at, here, active.empty() ? nullptr : styles[*active.rbegin()]->textStyle());
    at = here;
    for (; e < events.size() && bytes[events[e].at] == here; ++e) {
      if (events[e].start) {
        active.insert(events[e].index);
      } else {
        active.erase(events[e].index);
      }
    }
  }
  add(at, content.size(), active.empty() ? nullptr : styles[*active.rbegin()]->textStyle());
  return runs;
}

Ref<TextStyle> paragraphStyle(const std::vector<Ref<RangedTextStyle>>& styles) {
  for (const auto& s : styles) {
    if (s && s->textStyle()) return s->textStyle();
  }
  return nullptr;
}

}  // namespace orvane::handoff
