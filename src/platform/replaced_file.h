// A file that is read, and then replaced whole, by one process at a time.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/descriptor.h"
#include "platform/file.h"

namespace hostsweep {

// From its construction to its destruction the object has the file to itself: others of its kind,
// in other processes, wait. The path may be that of a symbolic link, which stays: what it leads to
// is read and replaced. Each function throws `std::system_error`, whose text begins with the path,
// if the system does not do what is needed.
class ReplacedFile {
 public:
  // Opens the file, once no other object has it, or creates it empty. Throws also if it is known
  // already that it cannot be replaced: it or its directory cannot be written.
  explicit ReplacedFile(std::string path);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  // Removes a file that the object has created and not replaced.
  ~ReplacedFile();

  // False for a directory, a device and everything else that is not a regular file. It has not been
  // opened then, and nothing else may be called.
  [[nodiscard]] bool IsRegular() const { return isRegular_; }

  // Reads the next line, without its end; false if there is none left. A line of more than 16 MiB
  // comes in parts.
  bool ReadLine(std::string& line);

  // Gives the file this content, with the permissions, and where the system allows it the owner and
  // the group, that it had. On an error, or when power fails, it has the old content or the new
  // one.
  void Replace(const std::string& content);

 private:
  bool Open();
  void Lock() const;
  void FindDirectory();
  [[noreturn]] void Fail(const char* what) const;

  std::string path_;
  bool isRegular_ = true;
  bool isBegun_ = false;                 // created here, and not yet replaced
  std::optional<Descriptor> file_;       // which has the lock
  std::optional<Descriptor> directory_;  // that of the file itself
  std::string name_;                     // of the file in it
  std::string temporaryName_;            // of its next content in it
  std::string buffer_;
  std::size_t read_ = 0;  // of the buffer
};

}  // namespace hostsweep
