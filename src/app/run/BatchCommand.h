// A command of talven-run, as the program sees it.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "app/run/BatchOptions.h"
#include "app/run/Reporter.h"
#include "app/run/Table.h"

namespace talven {

/// What the help says about a command.
struct CommandText {
  std::string name;
  std::string summary;
  std::string details;
};

class BatchCommand {
 public:
  virtual ~BatchCommand() = default;

  virtual CommandText Text() const = 0;
  virtual BatchFeatures Features() const { return {}; }
  /// Adds the command's own options, which store what they are given in the command.
  virtual void AddOptions(CLI::App& app) = 0;
  virtual ColumnNames TableColumns() const = 0;
  /// Does the work on all inputs and puts its rows into the table. Throws CommandLineError before anything is done, and
  /// FatalIoError where the table can't be written.
  virtual void Run(const std::vector<std::string>& inputs, const BatchOptions& options, Reporter& reporter) = 0;
};

}  // namespace talven
