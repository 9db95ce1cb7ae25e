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
  // already that it cannot be replaced: it or its directory cannot be written, or it is another
  // user's in another user's sticky directory.
  explicit ReplacedFile(std::string path);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  // Removes a file that the object has created and not replaced, if the path still leads to it.
  ~ReplacedFile();

  // False for a directory, a device and everything else that is not a regular file. Such a file is
  // not opened, and the functions below may not be called.
  [[nodiscard]] bool IsRegular() const { return isRegular_; }

  // Reads the next line, without its line feed. Returns false if no line is left. A line of more
  // than 64 KiB comes in parts.
  bool ReadLine(std::string& line);

  // Gives the file this content, with the permissions and the access control list, and where the
  // system allows it the owner and the group, that it had; if the group cannot stay, the new one
  // may do no more than everybody else. On an error, or when power fails, it has the old content or
  // the new one. Throws `std::runtime_error` if the path no longer leads to the file that was
  // opened; what it leads to now stays.
  void Replace(const std::string& content);

 private:
  bool Open();
  void Lock() const;
  void FindDirectory();
  [[nodiscard]] bool IsInPlace() const { return IdentifyFile(path_) == id_; }
  [[noreturn]] void Fail(const char* what) const;

  std::string path_;
  bool isRegular_ = true;
  bool isBegun_ = false;                 // created by this object, and not yet replaced
  std::optional<Descriptor> file_;       // locked
  std::optional<FileId> id_;             // of the locked file
  std::optional<Descriptor> directory_;  // the directory that holds the file, not a link to it
  std::string name_;                     // of the file in that directory
  std::string temporaryName_;            // of the file's next content, in the same directory
  std::string buffer_;
  std::size_t read_ = 0;  // how much of the buffer has been read
};

}  // namespace hostsweep
