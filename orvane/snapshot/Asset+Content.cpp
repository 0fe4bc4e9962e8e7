#include <orvane/snapshot/Asset+Content.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Asset::Content, ORVANE_ASSET_CONTENT_FIELDS)

}  // namespace orvane
