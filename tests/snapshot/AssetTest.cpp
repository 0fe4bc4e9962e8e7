#include <orvane/snapshot/Asset.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

namespace {

constexpr const char* kImported = R"({"displayName":"Logo","layerName":"logo"})";

}  // namespace

TEST(Asset, ImportSourceMakesIdentifierLocalAndContentsOptional) {
  auto asset = decodeJson<Ref<Asset>>(kImported, importOptions());
  EXPECT_TRUE(asset->identifier().isLocal());
  EXPECT_TRUE(asset->contents().empty());
  EXPECT_FALSE(asset->isBitmap());

  // The document's own identifier is ignored, not merely defaulted.
  asset = decodeJson<Ref<Asset>>(
      R"({"_id":"a1","displayName":"d","layerName":"l","contents":null})", importOptions());
  EXPECT_TRUE(asset->identifier().isLocal());
  EXPECT_TRUE(asset->contents().empty());

  // Only a Boolean true counts.
  auto e = decodeError<Ref<Asset>>(kImported, importOptions(false));
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "_id");
  e = decodeError<Ref<Asset>>(R"({"_id":"a1","displayName":"d","layerName":"l"})");
  EXPECT_EQ(e.key(), "contents");
}

TEST(AssetContent, BadUrlFailsTheAsset) {
  auto e = decodeError<Ref<Asset>>(
      R"({"_id":"a","displayName":"d","layerName":"l","contents":[{"density":"9x"},{"url":""}]})");
  EXPECT_EQ(e.kind(), ErrorKind::dataCorrupted);
  EXPECT_EQ(pathOf(e), "contents[1].url");
}

TEST(Asset, ContentsPointBackAfterDecodeMakeAndAssignment) {
  auto asset =
      decodeJson<Ref<Asset>>(R"({"_id":"a","displayName":"d","layerName":"l","contents":[{},{}]})");
  for (const auto& content : asset->contents()) EXPECT_EQ(content->asset(), asset);

  auto first =
      Asset::Content::make({.url = std::nullopt, .density = std::nullopt, .format = std::nullopt});
  auto made =
      Asset::make({.displayName = "d", .layerName = "l", .isBitmap = false, .contents = {first}});
  EXPECT_EQ(first->asset(), made);

  // Assignment wires the new list and leaves the replaced one alone.
  auto second =
      Asset::Content::make({.url = std::nullopt, .density = Density::hdpi, .format = std::nullopt});
  auto other = Asset::make({.displayName = "o",
                            .layerName = "l",
                            .isBitmap = false,
                            .contents = std::vector<Ref<Asset::Content>>{}});
  other->setContents({first, second});
  EXPECT_EQ(first->asset(), other);
  EXPECT_EQ(second->asset(), other);
  auto third =
      Asset::Content::make({.url = std::nullopt, .density = std::nullopt, .format = std::nullopt});
  made->editContents([&](auto& contents) { contents.push_back(third); });
  // An in-place edit rewires the whole list, so the shared content comes back to `made`.
  EXPECT_EQ(third->asset(), made);
  EXPECT_EQ(first->asset(), made);
  EXPECT_EQ(second->asset(), other);

  // A back-reference never keeps its owner alive.
  made.reset();
  EXPECT_EQ(third->asset(), nullptr);
}
