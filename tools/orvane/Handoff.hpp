// The hand-off commands of the tool: render, code, tokens, inspect, assets, measure and diff.
#pragma once

#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include "Output.hpp"

namespace orvane::tool {

/// Adds the hand-off commands to the tool's parser and runs the one that was asked for.
class HandoffCommands {
 public:
  explicit HandoffCommands(CLI::App& app);
  ~HandoffCommands();
  HandoffCommands(const HandoffCommands&) = delete;
  HandoffCommands& operator=(const HandoffCommands&) = delete;

  /// After parsing: the exit status of the hand-off command given, or none if none was.
  std::optional<int> run(Output& out) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orvane::tool
