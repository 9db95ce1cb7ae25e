// The file in which sweeps keep what they have seen, from reading it to replacing it.
#pragma once

#include <string>
#include <vector>

#include "network/changes/comparison.h"
#include "network/engine/finding.h"
#include "network/plan/options.h"
#include "network/report/makers.h"
#include "platform/replaced_file.h"

namespace hostsweep {

// Locks the file as long as the object exists, so that the sweep of another process begins only
// after this one has kept what it has seen: each sweep is compared with the sweep before it.
class ChangesFile {
 public:
  // Reads the file that the options name. A file that does not exist, or is empty, is begun. Throws
  // `UsageError` if it is not such a file, or is of a later version, and `std::system_error` if it
  // cannot be read, or is known not to be writable, or if a list of makers cannot be read.
  explicit ChangesFile(const Options& options);

  // Adds the next finding of the sweep.
  void Add(Finding finding);

  // Ends the sweep. Returns the report of what has changed, in JSON or as a table: empty if the
  // file is begun.
  std::string End(bool isComplete);

  // Replaces the file. To be called after `End`, when its report has been written: changes that are
  // kept are not reported again. Throws `std::system_error` if the file cannot be replaced, and
  // `std::runtime_error` if it has been replaced or removed by others.
  void Keep();

  // If the file has been begun, a sentence that says with how many hosts; else empty.
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
