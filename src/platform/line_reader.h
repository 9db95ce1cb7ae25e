// Text files, line by line.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace hostsweep {

// A file that does not exist has no lines. Both functions throw `std::system_error`, whose text
// begins with the path, if the file cannot be read.
class LineReader {
 public:
  explicit LineReader(std::string path);
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  // Sets `line`, which is valid until the next call, to the next line without its line feed.
  // Returns false if there is none left.
  bool Next(std::string_view& line);

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  [[noreturn]] void Fail() const;

  std::string path_;
  std::vector<char> buffer_;
  std::unique_ptr<std::FILE, Closer> file_;  // after its buffer, so that it is closed before
  char* line_ = nullptr;                     // owned; getline(3) makes it larger
  std::size_t size_ = 0;
};

}  // namespace hostsweep
