// The viewer's own files (web/), carried inside the tool.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace orvane::tool {

/// One file of the viewer's page.
struct WebFile {
  std::string_view name;  ///< its name (`viewer.js`)
  const char* data;       ///< its bytes
  std::size_t size;       ///< how many
};

/// Every file of the viewer, as web/ holds them.
std::span<const WebFile> webFiles();

}  // namespace orvane::tool
