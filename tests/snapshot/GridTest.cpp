#include <orvane/snapshot/Grid.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(Grid, ColumnAndRowKeysDifferFromFieldNames) {
  auto grid =
      Grid::make({.horizontalOffset = 4,
                  .vertical = Grid::Vertical::make({.columnWidth = 60,
                                                    .columnCount = std::int64_t{12},
                                                    .gutterWidth = 20,
                                                    .hasOutsideGutters = true}),
                  .horizontal = Grid::Horizontal::make({.rowHeight = 8, .gutterHeight = 2})});
  auto written = encodeJson(grid);
  EXPECT_EQ(written, R"({"horizontalOffset":4,"vertical":{"columnWidth":60,"numberOfCols":12,)"
                     R"("gutterWidth":20,"guttersOnOutside":true},)"
                     R"("horizontal":{"rowHeight":8,"gutterHeight":2}})");
  auto back = decodeJson<Ref<Grid>>(written);
  EXPECT_EQ(back->vertical()->columnCount(), 12);
  EXPECT_TRUE(back->vertical()->hasOutsideGutters());
  EXPECT_EQ(back->horizontal()->gutterHeight(), 2);
  EXPECT_EQ(encodeJson(decodeJson<Ref<Grid>>(R"({"horizontalOffset":0,"vertical":null})")),
            R"({"horizontalOffset":0})");
}

TEST(Grid, EveryColumnAndRowKeyIsRequired) {
  struct Case {
    const char* json;
    ErrorKind kind;
    const char* path;
  };
  const Case cases[] = {
      {R"({})", ErrorKind::keyNotFound, "<root>"},
      {R"({"horizontalOffset":0,"vertical":{"columnWidth":1,"gutterWidth":1,"guttersOnOutside":false}})",
       ErrorKind::keyNotFound, "vertical"},
      {R"({"horizontalOffset":0,"vertical":{"columnWidth":1,"numberOfCols":1.5,"gutterWidth":1,"guttersOnOutside":false}})",
       ErrorKind::dataCorrupted, "vertical.numberOfCols"},
      {R"({"horizontalOffset":0,"horizontal":{"rowHeight":1,"gutterHeight":null}})",
       ErrorKind::valueNotFound, "horizontal.gutterHeight"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    auto e = decodeError<Ref<Grid>>(c.json);
    EXPECT_EQ(e.kind(), c.kind);
    EXPECT_EQ(pathOf(e), c.path);
  }
}
