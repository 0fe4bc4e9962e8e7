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

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }

// A face name's words: split at `-`, `_` and spaces, and where the case turns (`HelveticaNeue`,
// `SFProText` -> SF Pro Text); digits stay with their word.
std::vector<std::string_view> faceWords(std::string_view name) {
  std::vector<std::string_view> words;
  std::size_t start = 0;
  auto cut = [&](std::size_t end) {
    if (end > start) words.push_back(name.substr(start, end - start));
    start = end;
  };
  for (std::size_t i = 0; i < name.size(); ++i) {
    char c = name[i];
    if (c == '-' || c == '_' || c == ' ') {
      cut(i);
      start = i + 1;
      continue;
    }
    if (i == start || !isUpper(c)) continue;
    char before = name[i - 1];
    bool nextLower = i + 1 < name.size() && isLower(name[i + 1]);
    if (isLower(before) || (isUpper(before) && nextLower)) cut(i);
  }
  cut(name.size());
  return words;
}

// Weight words, one word or two (`Extra Light` as camel case splits it); matched without regard
// to case.
struct WeightWord {
  std::string_view first, second;
  int weight;
};
constexpr std::array<WeightWord, 26> kWeightWords{{
    {"Thin", "", 100},        {"Hairline", "", 100},    {"Extra", "Light", 200},
    {"ExtraLight", "", 200},  {"Ultra", "Light", 200},  {"UltraLight", "", 200},
    {"Light", "", 300},       {"Regular", "", 400},     {"Normal", "", 400},
    {"Book", "", 400},        {"Roman", "", 400},       {"Medium", "", 500},
    {"Semi", "Bold", 600},    {"SemiBold", "", 600},    {"Demi", "Bold", 600},
    {"DemiBold", "", 600},    {"Demi", "", 600},        {"Bold", "", 700},
    {"Extra", "Bold", 800},   {"ExtraBold", "", 800},   {"Ultra", "Bold", 800},
    {"UltraBold", "", 800},   {"Black", "", 900},       {"Heavy", "", 900},
    {"Extra", "Black", 900},  {"Ultra", "Black", 900},
}};

bool isStyleWord(std::string_view word) {
  return equalNoCase(word, "Italic") || equalNoCase(word, "It") || equalNoCase(word, "Oblique");
}

// The weight word at `words[i]`, and how many words it takes (0: none).
std::size_t weightAt(const std::vector<std::string_view>& words, std::size_t i, int& weight) {
  std::size_t best = 0;
  for (const auto& w : kWeightWords) {
    if (!equalNoCase(words[i], w.first)) continue;
    std::size_t length = w.second.empty() ? 1 : 2;
    if (length == 2 && (i + 1 >= words.size() || !equalNoCase(words[i + 1], w.second))) continue;
    if (length > best) {
      best = length;
      weight = w.weight;
    }
  }
  return best;
}

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
  std::vector<std::string_view> words = faceWords(fontName);
  // The family is at least the first word; the weight and style words start after it.
  std::size_t first = words.size();
  for (std::size_t i = 1; i < words.size() && first == words.size(); ++i) {
    int weight = 0;
    if (weightAt(words, i, weight) > 0 || isStyleWord(words[i])) first = i;
  }
  for (std::size_t i = 0; i < first; ++i) {
    if (i) face.family += ' ';
    face.family += words[i];
  }
  bool weighed = false;
  for (std::size_t i = first; i < words.size(); ++i) {
    int weight = 0;
    if (std::size_t length = weightAt(words, i, weight)) {
      // The first weight word names the weight (`Bold Italic`, not a later `Book`).
      if (!weighed) face.weight = weight;
      weighed = true;
      i += length - 1;
    } else if (isStyleWord(words[i])) {
      face.italic = true;
    }
  }
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
