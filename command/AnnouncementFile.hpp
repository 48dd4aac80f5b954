#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace Hilalor {

/// Keeps the announcement in progress in a file for the session, so that commands, which announce
/// nothing, say what the item says. It holds a lock on the file, which ends with the program
/// however that ends. What fails changes nothing. One thread.
class AnnouncementKeeper {
 public:
  /// Begins with none, whatever another run has left. An empty path keeps nothing.
  explicit AnnouncementKeeper(const std::filesystem::path& file);
  AnnouncementKeeper(const AnnouncementKeeper&) = delete;
  AnnouncementKeeper& operator=(const AnnouncementKeeper&) = delete;
  ~AnnouncementKeeper();

  void keep(const std::optional<std::string>& title) const;

 private:
  int file_;
};

/// The announcement of the program that runs; none when it announces nothing or does not run.
[[nodiscard]] std::optional<std::string> keptAnnouncement(const std::filesystem::path& file);

}  // namespace Hilalor
