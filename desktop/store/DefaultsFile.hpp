#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

#include "desktop/store/DefaultsContent.hpp"
#include "desktop/store/FileStamp.hpp"
#include "desktop/store/SqliteConnection.hpp"

namespace Hilalor::Desktop {

/// The file of a defaults store, open for writing. Two tables: `defaults` holds a row a key with
/// its type in words, `entries` a row an entry of a dictionary.
///
/// Writes go to a write-ahead log without waiting for the disk. That is enough for the end of this
/// process, however sudden: what write() took is the kernel's. A power cut may cost the last
/// moments before it, but leaves the file whole. The file itself holds what was written only after
/// fold(), or when this goes.
///
/// One thread at a time, not always the same.
class DefaultsFile {
 public:
  struct Opened {
    /// Null where the file cannot be written, or not now.
    std::unique_ptr<DefaultsFile> file;
    /// What the file holds, where there is one.
    DefaultsContent stored;
    /// What could still be read of a damaged file; none where the file was not damaged. It was set
    /// aside under another name, and the new file is empty.
    std::optional<DefaultsContent> salvaged;
  };

  /// Opens the file for writing, with its folder made where they are absent. The patience is for
  /// another program's lock.
  [[nodiscard]] static Opened open(const std::filesystem::path& path,
                                   std::chrono::milliseconds patience);

  struct Protected {
    DefaultsContent content;
    /// Whether that is all there is to read. It is not where another program's lock or the lack of
    /// a log's index left the file proper without its log, or nothing at all.
    bool isWhole = false;
  };

  /// What a file that cannot be written holds.
  [[nodiscard]] static Protected readProtected(const std::filesystem::path& path);

  enum class Outcome {
    done,
    refused,  ///< Nothing was written; it may succeed later.
    damaged,  ///< The file is no longer sound.
  };

  /// How long a write waits for another program's lock. Their writes are over in well under a
  /// millisecond, and a keystroke may not wait longer.
  static constexpr std::chrono::milliseconds kWritePatience{20};

  /// Writes the places as they are in the content, all or none.
  Outcome write(const DefaultsContent& content, const UnwrittenPlaces& places);

  /// Takes the log into the file and empties it, which waits for the disk. After that a copy of the
  /// file holds everything, and another file may be copied over it.
  void fold();

  /// The size of the log, in bytes.
  [[nodiscard]] std::int64_t logSize() const { return log_ ? log_->size : 0; }

  enum class Condition {
    untouched,
    replaced,  ///< Something else lies under the file's name, or nothing, or other bytes.
    logLost,   ///< The file lies there, but its log is not what this program left.
  };

  /// What others have done to file and log since the last write.
  [[nodiscard]] Condition condition();

  /// Removes the log where it is this program's or spoiled, so that it is never applied to another
  /// file. To be called on a file that is not untouched, right before it is let go.
  void leave(Condition condition);

 private:
  DefaultsFile(const std::filesystem::path& path, std::unique_ptr<SqliteConnection> connection);
  static Outcome tryOpen(const std::filesystem::path& path, std::chrono::milliseconds patience,
                         Opened& opened);
  int writePlace(const DefaultsPlace& place, const StoredValue* value);

  [[nodiscard]] bool isLogUntouched();
  void lookAtFiles();

  std::filesystem::path path_;
  std::unique_ptr<SqliteConnection> connection_;
  /// As this program left them.
  std::optional<FileStamp> database_;
  std::optional<FileStamp> log_;
  std::int64_t dataVersion_ = 0;
  SqliteStatement begin_;
  SqliteStatement commit_;
  SqliteStatement putValue_;
  SqliteStatement putEntry_;
  SqliteStatement removeEntry_;
};

}  // namespace Hilalor::Desktop
