#include "platform/line_reader.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace hostsweep {

LineReader::LineReader(std::string path)
    : path_(std::move(path)), file_(std::fopen(path_.c_str(), "r")) {
  const bool isMissing = errno == ENOENT || errno == ENOTDIR;
  if (!file_ && !isMissing) throw std::system_error(errno, std::generic_category(), path_);
}

LineReader::~LineReader() { std::free(line_); }

bool LineReader::Next(std::string_view& line) {
  const ssize_t length = ::getline(&line_, &size_, file_.get());
  if (length < 0) {
    if (std::feof(file_.get()) != 0 && std::ferror(file_.get()) == 0) return false;
    throw std::system_error(errno, std::generic_category(), path_);
  }
  line = {line_, static_cast<std::size_t>(length)};
  if (line.back() == '\n') line.remove_suffix(1);
  return true;
}

}  // namespace hostsweep
