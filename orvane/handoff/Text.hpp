// How the hand-off outputs read text layers: font face names and ranged styles.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Ref.hpp>
#include <orvane/styles/RangedTextStyle.hpp>
#include <orvane/styles/TextStyle.hpp>

namespace orvane::handoff {

/// A font face name (`Inter-SemiBold`, `Roboto-BoldItalic`, `HelveticaNeue`) read as a family,
/// a weight and a style. The name is split into words at `-` (and `_`, spaces) and where the
/// case turns (`SFProText` is SF Pro Text); the words from the first weight or style word on
/// give the weight and style, the words before it the family, joined by spaces. Weight words,
/// in any case: Thin, Hairline 100; ExtraLight, UltraLight 200; Light 300; Regular, Normal,
/// Book, Roman 400; Medium 500; SemiBold, DemiBold, Demi 600; Bold 700; ExtraBold, UltraBold 800;
/// Black, Heavy 900. Style words: Italic, It, Oblique. Without a weight word the weight is 400.
struct FontFace {
  std::string family;   ///< the family's words joined by spaces (`Helvetica Neue`)
  int weight = 400;     ///< 100 to 900, as CSS `font-weight` counts
  bool italic = false;  ///< the face is italic
};
/// The face that `fontName` names.
FontFace fontFace(std::string_view fontName);

/// A stretch of a text layer's content set in one style, as byte offsets into the content.
/// `style` is null where no ranged style covers the text.
struct TextRun {
  std::size_t begin = 0;  ///< the first byte of the run in the content
  std::size_t end = 0;    ///< the byte after its last
  Ref<TextStyle> style;   ///< its style; null where no range covers it
};

/// The content cut into runs by its ranged styles, in order, covering it whole. Ranges count
/// UTF-16 code units; they are clamped to the content, and a bound inside a surrogate pair
/// moves past the pair. Where ranges overlap, the later one in the list wins. Neighbouring
/// runs of the same style are one run.
std::vector<TextRun> textRuns(std::string_view content,
                              const std::vector<Ref<RangedTextStyle>>& styles);

/// The style that sets the paragraph (alignment, line height): the first of the list that
/// has one, else null.
Ref<TextStyle> paragraphStyle(const std::vector<Ref<RangedTextStyle>>& styles);

}  // namespace orvane::handoff
