#include "platform/replaced_file.h"

#include <fcntl.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): POSIX's realpath, not in <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/access_list.h"
#include "platform/system_call.h"
#include "platform/text/printable.h"

namespace hostsweep {
namespace {

struct Freer {
  void operator()(char* text) const { std::free(text); }
};

// A new file in a directory, which is removed again unless it is kept.
class TemporaryFile {
 public:
  TemporaryFile(int directory, const char* name) : directory_(directory), name_(name) {
    // A killed process may have left its own behind; no other process can be writing it now.
    unlinkat(directory, name, 0);
    file_ = RetryInterrupted([&] {
      return openat(directory, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    });
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_ < 0) return;
    close(file_);
    if (!isKept_) unlinkat(directory_, name_, 0);
  }

  [[nodiscard]] int Number() const { return file_; }
  void Keep() { isKept_ = true; }

 private:
  int directory_;
  const char* name_;
  int file_ = -1;
  bool isKept_ = false;
};

bool WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = RetryInterrupted([&] { return write(file, text.data(), text.size()); });
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Gives a file the permissions of another one, and its owner and group if that is allowed, or its
// group alone. A file of another group gives that group no more than everybody else.
bool CopyPermissions(int from, int to) {
  struct stat old = {};
  struct stat now = {};
  if (fstat(from, &old) != 0 || fstat(to, &now) != 0) return false;
  constexpr auto SameOwner = static_cast<uid_t>(-1);
  const bool isSame = old.st_uid == now.st_uid && old.st_gid == now.st_gid;
  const bool isOfGroup =
      isSame || fchown(to, old.st_uid, old.st_gid) == 0 || fchown(to, SameOwner, old.st_gid) == 0;
  constexpr unsigned Permissions = 07777;
  unsigned mode = old.st_mode & Permissions;
  if (!isOfGroup) mode &= ~unsigned{S_IRWXG} | (mode & S_IRWXO) << 3U;
  return CopyAccessList(from, to) && fchmod(to, static_cast<mode_t>(mode)) == 0;
}

// False, with errno set, for a file of another user in a sticky directory of another user: only
// root may replace it.
bool MayReplace(int directory, int file) {
  struct stat place = {};
  struct stat old = {};
  if (fstat(directory, &place) != 0 || fstat(file, &old) != 0) return false;
  const uid_t user = geteuid();
  const bool isSticky = (place.st_mode & S_ISVTX) != 0;
  errno = EPERM;
  return !isSticky || user == 0 || user == place.st_uid || user == old.st_uid;
}

}  // namespace

ReplacedFile::ReplacedFile(std::string path) : path_(std::move(path)) {
  while (isRegular_ && !Open()) {
  }
  if (isRegular_) FindDirectory();
}

ReplacedFile::~ReplacedFile() {
  if (isBegun_ && directory_ && IsInPlace()) unlinkat(directory_->Number(), name_.c_str(), 0);
}

void ReplacedFile::Fail(const char* what) const {
  throw std::system_error(errno, std::generic_category(), Printable(path_) + ": " + what);
}

// Opens the file and locks it. Returns false if it has been replaced or removed meanwhile: what was
// locked is then no longer the file at this path.
bool ReplacedFile::Open() {
  // Only a regular file is opened: opening a device can have effects, opening a FIFO can wait.
  struct stat status = {};
  const bool isThere = stat(path_.c_str(), &status) == 0;
  if (isThere && !S_ISREG(status.st_mode)) {
    isRegular_ = false;
    return true;
  }
  if (!isThere && errno != ENOENT) Fail("cannot be opened");
  // Not with O_EXCL, which a symbolic link that leads to nothing yet would fail.
  constexpr int Flags = O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  constexpr mode_t AllButExecution = 0666;
  const int file = RetryInterrupted(
      [&] { return open(path_.c_str(), isThere ? Flags : Flags | O_CREAT, AllButExecution); });
  if (file < 0 && isThere && errno == ENOENT) return false;
  if (file < 0) Fail("cannot be written");
  file_.emplace(file);
  Lock();
  if (fstat(file, &status) != 0) Fail("cannot be read");
  id_.emplace(status.st_dev, status.st_ino);
  if (!IsInPlace()) {
    file_.reset();
    return false;
  }
  isRegular_ = S_ISREG(status.st_mode);
  isBegun_ = !isThere && status.st_size == 0;
  temporaryName_ = ".hostsweep-" + std::to_string(status.st_ino);
  return true;
}

// POSIX's lock, which all systems and network file systems have. It ends as soon as the process
// closes any descriptor of the file, and this is the only one.
void ReplacedFile::Lock() const {
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  if (RetryInterrupted([&] { return fcntl(file_->Number(), F_SETLKW, &lock); }) != 0) {
    Fail("cannot be locked");
  }
}

void ReplacedFile::FindDirectory() {
  const std::unique_ptr<char, Freer> real(realpath(path_.c_str(), nullptr));
  if (!real) Fail("cannot be found");
  const std::string path = real.get();
  const std::size_t slash = path.rfind('/');
  name_ = path.substr(slash + 1);
  const std::string directory = path.substr(0, slash + 1);
  const int number =
      RetryInterrupted([&] { return open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (number < 0) Fail("its directory cannot be opened");
  directory_.emplace(number);
  if (faccessat(number, ".", W_OK | X_OK, 0) != 0) Fail("its directory cannot be written");
  if (!MayReplace(number, file_->Number())) Fail("cannot be replaced");
}

bool ReplacedFile::ReadLine(std::string& line) {
  constexpr std::size_t LongestPart = 1U << 16U;
  line.clear();
  for (;;) {
    const std::size_t end = buffer_.find('\n', read_);
    if (end != std::string::npos) {
      line.append(buffer_, read_, end - read_);
      read_ = end + 1;
      return true;
    }
    line.append(buffer_, read_);
    read_ = buffer_.size();
    if (line.size() >= LongestPart) return true;
    buffer_.resize(1U << 14U);
    read_ = 0;
    const ssize_t count =
        RetryInterrupted([&] { return read(file_->Number(), buffer_.data(), buffer_.size()); });
    buffer_.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    if (count < 0) Fail("cannot be read");
    if (count == 0) return !line.empty();
  }
}

void ReplacedFile::Replace(const std::string& content) {
  const int directory = directory_->Number();
  TemporaryFile next(directory, temporaryName_.c_str());
  // The permissions come first: the new file can have inherited other ones from its directory.
  const bool isWritten = next.Number() >= 0 && CopyPermissions(file_->Number(), next.Number()) &&
                         WriteAll(next.Number(), content) && fsync(next.Number()) == 0;
  if (!isWritten) Fail("cannot be replaced");
  if (!IsInPlace()) {
    throw std::runtime_error(Printable(path_) + ": has been replaced or removed meanwhile");
  }
  if (renameat(directory, temporaryName_.c_str(), directory, name_.c_str()) != 0) {
    Fail("cannot be replaced");
  }
  next.Keep();
  isBegun_ = false;
  // Some file systems have no such request for directories.
  if (fsync(directory) != 0 && errno != EINVAL) Fail("may not be on the disk yet");
}

}  // namespace hostsweep
