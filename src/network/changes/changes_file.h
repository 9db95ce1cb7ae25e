// The file of what sweeps have seen, from reading it to replacing it.
#pragma once

#include <string>
#include <vector>

#include "network/changes/comparison.h"
#include "network/engine/finding.h"
#include "network/plan/options.h"
#include "network/report/makers.h"
#include "platform/replaced_file.h"

namespace hostsweep {

// Has the file to itself as long as it exists, so that the sweep of another process begins only
// after this one has kept what it has seen: each is compared with the one before.
class ChangesFile {
 public:
  // Reads the file that the options name. One that does not exist, or is empty, is begun. Throws
  // `UsageError` if it is not such a file, or one of a later version, and `std::system_error` if it
  // cannot be read, or is known not to be writable.
  explicit ChangesFile(const Options& options);

  // Adds a finding of the sweep, in their order.
  void Add(Finding finding);

  // Ends the sweep. Returns the report of what has changed, in JSON or as a table: empty if the
  // file is begun.
  std::string End(bool isComplete);

  // Replaces the file, after `End` and when its report has been written: what nobody has read would
  // not be reported again. Throws `std::system_error` if that is not possible.
  void Keep();

  // A sentence that a file has been begun, with how many hosts; empty if it has not.
  [[nodiscard]] std::string BeginningInWords() const;

 private:
  std::vector<SeenHost> ReadHosts();

  std::string path_;
  bool isInJson_;
  bool usesNames_;
  ReplacedFile file_;
  bool isBegun_ = false;
  Makers makers_;
  Comparison comparison_;
};

}  // namespace hostsweep
