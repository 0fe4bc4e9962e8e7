// Finding what the hand-off outputs look at: a screen, a component, one of their versions.
#pragma once

#include <optional>

#include <orvane/project/Component.hpp>
#include <orvane/project/Project.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/project/Version.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane::handoff {

/// The project's screen with that identifier, or null.
Ref<Screen> findScreen(const Project& project, const Identifier& identifier);

/// The component with that identifier anywhere in the component-section tree (depth first,
/// in document order), or null. A section that contains itself is visited once.
Ref<Component> findComponent(const Project& project, const Identifier& identifier);

/// The collection's latest version when `identifier` is empty; else its latest or listed
/// version with that identifier (the latest first), or null.
Ref<Version> findVersion(const VersionCollection& collection,
                         const std::optional<Identifier>& identifier = std::nullopt);

}  // namespace orvane::handoff
