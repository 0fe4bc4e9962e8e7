#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(BlendMode, RawValuesAreExactHyphenatedStrings) {
  EXPECT_EQ(encodeJson(decodeJson<BlendMode>(R"("color-dodge")")), R"("color-dodge")");
  // The misspelling is the stored raw value; the correct spelling is unknown.
  EXPECT_EQ(decodeJson<BlendMode>(R"("substract")"), BlendMode::substract);
  for (const char* raw : {"subtract", "colorBurn", "Color-Burn", "color burn", ""}) {
    SCOPED_TRACE(raw);
    auto e = decodeError<BlendMode>("\"" + std::string(raw) + "\"");
    EXPECT_EQ(e.kind(), ErrorKind::dataCorrupted);
    EXPECT_EQ(e.description(),
              "Cannot initialize BlendMode from invalid String value " + std::string(raw));
  }
}

TEST(Color, ComponentsKeepAnyValueAndAreWrittenInOrder) {
  EXPECT_EQ(roundTrip<Ref<Color>>(R"({"a":1,"b":-3,"g":0.5,"r":255})"),
            R"({"r":255,"g":0.5,"b":-3,"a":1})");
}
