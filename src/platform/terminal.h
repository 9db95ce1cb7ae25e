// The files that a program's standard descriptors lead to: their kinds, and whether they take text.
#pragma once

namespace hostsweep {

// A socket counts as a pipe: it has a reader, too. Everything else that is not a terminal counts as
// a file.
enum class FileKind { Terminal, Pipe, File };

constexpr int StandardOutput = 1;
constexpr int StandardError = 2;

FileKind KindOf(int descriptor);

// True if some bytes can be written without waiting: false for a full pipe or a stopped terminal.
bool CanWrite(int descriptor);

// True unless the descriptor leads to a terminal on which another job is in the foreground.
bool IsForeground(int descriptor);

// The width of the terminal that the descriptor leads to, in columns; 0 if it is unknown.
int ColumnsOf(int descriptor);

}  // namespace hostsweep
