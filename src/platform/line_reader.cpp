#include "platform/line_reader.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "platform/text/printable.h"

namespace hostsweep {

LineReader::LineReader(std::string path)
    : path_(std::move(path)), file_(std::fopen(path_.c_str(), "r")) {
  constexpr std::size_t BufferSize = 65536;  // that of some standard libraries is small
  if (!file_) {
    if (errno != ENOENT && errno != ENOTDIR) Fail();
    return;
  }
  buffer_.resize(BufferSize);
  std::setvbuf(file_.get(), buffer_.data(), _IOFBF, buffer_.size());
}

LineReader::~LineReader() { std::free(line_); }

bool LineReader::Next(std::string_view& line) {
  if (!file_) return false;
  const ssize_t length = ::getline(&line_, &size_, file_.get());
  if (length < 0) {
    if (std::feof(file_.get()) != 0 && std::ferror(file_.get()) == 0) return false;
    Fail();
  }
  line = {line_, static_cast<std::size_t>(length)};
  if (line.back() == '\n') line.remove_suffix(1);
  return true;
}

void LineReader::Fail() const {
  throw std::system_error(errno, std::generic_category(), Printable(path_));
}

}  // namespace hostsweep
