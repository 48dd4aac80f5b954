#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "datetime/Date.hpp"

namespace Hilalor::Program {

/// Prints what a report of a fault needs, line by line, with nothing of what the user keeps or
/// where they are. Each question to the desktop has a limit, and is asked by the program with Qt
/// (at that path) in a process of its own: where that cannot start or hangs, the rest is told all
/// the same. Main thread.
void diagnose(Date now, const std::filesystem::path& store, const std::filesystem::path& program,
              const std::function<void(const std::string& line)>& print);

}  // namespace Hilalor::Program
