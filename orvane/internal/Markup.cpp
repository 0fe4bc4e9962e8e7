#include <orvane/internal/Markup.hpp>

#include <cmath>
#include <cstdio>

namespace orvane::detail {

void appendNumber(std::string& out, double value, int decimals) {
  if (!std::isfinite(value)) value = 0;
  char buffer[400];
  if (std::abs(value) >= 1e15) {
    // Mantissa without trailing zeros, then the exponent: 1e+308, 3.402823e+38.
    int n = std::snprintf(buffer, sizeof buffer, "%.6e", value);
    std::string_view text(buffer, static_cast<std::size_t>(n));
    std::size_t e = text.find('e');
    std::string_view mantissa = text.substr(0, e);
    while (mantissa.back() == '0') mantissa.remove_suffix(1);
    if (mantissa.back() == '.') mantissa.remove_suffix(1);
    out += mantissa;
    out += text.substr(e);
    return;
  }
  int n = std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  if (n <= 0 || n >= static_cast<int>(sizeof buffer)) {
    out += '0';
    return;
  }
  std::string_view text(buffer, static_cast<std::size_t>(n));
  if (text.find('.') != std::string_view::npos) {
    while (text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
  }
  if (text == "-0") text = "0";
  out += text;
}

std::string number(double value, int decimals) {
  std::string out;
  appendNumber(out, value, decimals);
  return out;
}

CodePoint readCodePoint(std::string_view text, std::size_t at) {
  constexpr CodePoint kInvalid{0xFFFD, 1};
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char lead = byte(at);
  if (lead < 0x80) return {lead, 1};
  std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
  if (length == 0 || lead > 0xF4 || at + length > text.size()) return kInvalid;
  char32_t c = lead & (0x7F >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return kInvalid;
    c = (c << 6) | (byte(at + i) & 0x3F);
  }
  bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
  if (overlong || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return kInvalid;
  return {c, length};
}

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

namespace {

bool xmlAllows(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c != 0xFFFE && c != 0xFFFF;
}

}  // namespace

void appendXml(std::string& out, std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    // Plain ASCII runs go through untouched, the common case by far.
    std::size_t run = at;
    while (run < text.size()) {
      unsigned char b = static_cast<unsigned char>(text[run]);
      if (b >= 0x80 || b < 0x20 || b == '&' || b == '<' || b == '>' || b == '"') break;
      ++run;
    }
    out.append(text.data() + at, run - at);
    at = run;
    if (at == text.size()) break;
    CodePoint c = readCodePoint(text, at);
    switch (c.value) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        appendUtf8(out, xmlAllows(c.value) ? c.value : char32_t{0xFFFD});
    }
    at += c.length;
  }
}

void appendCssString(std::string& out, std::string_view text) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  for (char ch : text) {
    unsigned char b = static_cast<unsigned char>(ch);
    if (ch == '"' || ch == '\\') {
      out += '\\';
      out += ch;
    } else if (b < 0x20 || b == 0x7F) {
      out += '\\';
      if (b >= 0x10) out += kHex[b >> 4];
      out += kHex[b & 0xF];
      out += ' ';
    } else {
      out += ch;
    }
  }
  out += '"';
}

}  // namespace orvane::detail

namespace orvane::detail {

void appendQuoted(std::string& out, std::string_view text,
                  void (*control)(std::string& out, char32_t c)) {
  out += '"';
  for (std::size_t at = 0; at < text.size();) {
    CodePoint c = readCodePoint(text, at);
    at += c.length;
    switch (c.value) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (c.value < 0x20) {
          control(out, c.value);
        } else {
          appendUtf8(out, c.value);
        }
    }
  }
  out += '"';
}

void appendJsonString(std::string& out, std::string_view text) {
  appendQuoted(out, text, [](std::string& o, char32_t c) {
    static constexpr char kHex[] = "0123456789abcdef";
    o += "\\u00";
    o += kHex[c >> 4];
    o += kHex[c & 0xF];
  });
}

}  // namespace orvane::detail

namespace orvane::detail {

std::string indentJson(std::string_view compact) {
  std::string out;
  out.reserve(compact.size() * 2);
  int depth = 0;
  auto newline = [&] {
    out += '\n';
    out.append(2 * static_cast<std::size_t>(depth), ' ');
  };
  for (std::size_t i = 0; i < compact.size(); ++i) {
    char c = compact[i];
    switch (c) {
      case '"': {
        std::size_t end = i + 1;
        while (end < compact.size() && compact[end] != '"') end += compact[end] == '\\' ? 2 : 1;
        out.append(compact, i, std::min(end + 1, compact.size()) - i);
        i = end;
        break;
      }
      case '{':
      case '[':
        out += c;
        if (i + 1 < compact.size() && (compact[i + 1] == '}' || compact[i + 1] == ']')) {
          out += compact[++i];
          break;
        }
        ++depth;
        newline();
        break;
      case '}':
      case ']':
        --depth;
        newline();
        out += c;
        break;
      case ',':
        out += c;
        newline();
        break;
      case ':':
        out += ": ";
        break;
      default:
        out += c;
    }
  }
  return out;
}

}  // namespace orvane::detail
