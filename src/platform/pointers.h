// Lists of strings in the form in which POSIX takes them.
#pragma once

#include <string>
#include <vector>

namespace hostsweep {

// The array of pointers to the strings, ended by a null pointer. Valid as long as the strings are.
inline std::vector<char*> Pointers(const std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  pointers.reserve(strings.size() + 1);
  // POSIX's type lacks a const, but promises that the strings are not changed.
  for (const std::string& string : strings) pointers.push_back(const_cast<char*>(string.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace hostsweep
