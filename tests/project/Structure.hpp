// Documents and records shared by the project-structure tests.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Layers.hpp"
#include "support/Records.hpp"

namespace orvane::test {

/// A version document with its snapshot; `extra` members are spliced in before the end.
inline std::string versionJson(std::string_view id, std::string_view extra = "") {
  std::string json = R"({"_id":")" + std::string(id) + R"(","snapshot":{"_id":"s-)" +
                     std::string(id) + R"(","width":375,"height":812})";
  if (!extra.empty()) json += "," + std::string(extra);
  return json + "}";
}

/// A collection document (screen, component or plain collection) with one latest version and
/// `extra` members.
inline std::string collectionJson(std::string_view id, std::string_view extra = "") {
  std::string json = R"({"_id":")" + std::string(id) + R"(","name":"n-)" + std::string(id) +
                     R"(","latestVersion":)" + versionJson("L" + std::string(id));
  if (!extra.empty()) json += "," + std::string(extra);
  return json + "}";
}

/// A project with nothing in it, to wire children into.
inline Ref<Project> makeProject(std::string_view id = "P") {
  return decodeJson<Ref<Project>>(
      R"({"_id":")" + std::string(id) +
      R"(","name":"p","icon":{},"created":"2024-01-01T00:00:00Z","users":[]})");
}

/// A component section made in code, without description.
inline Ref<ComponentSection> makeSection(
    const char* id, std::optional<std::vector<Ref<ComponentSection>>> sections = std::nullopt,
    std::optional<std::vector<Ref<Component>>> components = std::nullopt) {
  return ComponentSection::make({.identifier = Identifier(id),
                                 .name = id,
                                 .description = std::nullopt,
                                 .sections = std::move(sections),
                                 .components = std::move(components)});
}

inline Ref<Version> makeVersion(std::string_view id) {
  auto snapshot = makeSnapshot();
  return Version::make({.identifier = Identifier(std::string(id)),
                        .commit = nullptr,
                        .creator = nullptr,
                        .snapshot = snapshot,
                        .snapshotURL = std::nullopt});
}

}  // namespace orvane::test
