// The formatters that `MakeFormatter` chooses from, each in a source of its own.
#pragma once

#include <memory>

#include "network/report/format.h"

namespace hostsweep {

std::unique_ptr<Formatter> MakeLinesFormatter(const Layout& layout);
std::unique_ptr<Formatter> MakeTableFormatter(const Layout& layout, Makers& makers);
std::unique_ptr<Formatter> MakeCsvFormatter(const Layout& layout, Makers& makers);
std::unique_ptr<Formatter> MakeJsonFormatter(const Layout& layout, Makers& makers);
std::unique_ptr<Formatter> MakeMapFormatter(const Layout& layout);

}  // namespace hostsweep
