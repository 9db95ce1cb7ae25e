#include "network/changes/changes_formatter.h"

#include <string>

namespace hostsweep {
namespace {

class ChangesFormatter : public Formatter {
 public:
  explicit ChangesFormatter(ChangesFile& file) : file_(file) {}

  std::string Add(const Finding& finding) override {
    file_.Add(finding);
    return {};
  }

  std::string End(bool isComplete) override { return file_.End(isComplete); }

 private:
  ChangesFile& file_;
};

}  // namespace

std::unique_ptr<Formatter> MakeChangesFormatter(ChangesFile& file) {
  return std::make_unique<ChangesFormatter>(file);
}

}  // namespace hostsweep
