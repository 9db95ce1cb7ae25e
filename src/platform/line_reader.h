// Text files, line by line.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace hostsweep {

class LineReader {
 public:
  // Opens the file. Throws `std::system_error` if it exists and cannot be opened.
  explicit LineReader(std::string path);
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  // False if there is no such file.
  [[nodiscard]] bool IsOpen() const { return file_ != nullptr; }

  // Sets `line`, which is valid until the next call, to the next line without its line feed.
  // Returns false after the last one. Throws `std::system_error` if the file cannot be read.
  bool Next(std::string_view& line);

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::string path_;
  std::unique_ptr<std::FILE, Closer> file_;
  char* line_ = nullptr;  // owned; getline(3) makes it larger
  std::size_t size_ = 0;
};

}  // namespace hostsweep
