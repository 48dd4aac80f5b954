#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "desktop/store/DefaultsContent.hpp"
#include "desktop/store/DefaultsFile.hpp"
#include "desktop/store/DefaultsMemory.hpp"
#include "desktop/store/DiskJob.hpp"
#include "platform/DefaultsStore.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The defaults store in an SQLite file. All is read once, at construction, and served from memory;
/// each write goes through to the disk before its call returns. A text so long that typing would
/// wait for it is written on another thread, and so is what is set meanwhile, after it.
///
/// Some seconds after the last write, and at every end, the file alone holds everything.
///
/// What the disk refuses (full, protected, locked by another program) waits in memory and is tried
/// again with every further write and after a while, and so is a file that could not be read; there
/// is no timer when nothing waits. A damaged file is set aside, and what could be read of it goes
/// into a new one. A file that was deleted is made anew, and one put in its place or copied over it
/// gains what only this program remembers; where both have a value, the file's stands, unless ours
/// was never written. Where an entry of ours gives way so, all that was remembered is kept in a
/// file beside it, "defaults.replaced-1.sqlite". A log that others spoil is written anew.
///
/// Nothing is created before the first write. File and folder are the user's alone.
class SqliteDefaultsStore final : public DefaultsStore {
 public:
  /// The loop must outlive the store.
  SqliteDefaultsStore(std::filesystem::path file, RunLoop& loop);
  SqliteDefaultsStore(const SqliteDefaultsStore&) = delete;
  SqliteDefaultsStore& operator=(const SqliteDefaultsStore&) = delete;
  ~SqliteDefaultsStore() override;

  /// "hilalor/defaults.sqlite" in the user's configuration folder: XDG_CONFIG_HOME, or ".config" in
  /// the home folder.
  [[nodiscard]] static std::filesystem::path userFile();

  /// Writes what waits and lets go of the file, whose log is taken into it. For an end of the
  /// process that destroys nothing; a later write opens the file again.
  void close();

  // DefaultsStore
  [[nodiscard]] bool isRead() const override { return isRead_; }
  void lookAgain() override;
  [[nodiscard]] std::optional<DefaultsValue> value(std::string_view key) const override;
  void setValue(std::string_view key, const DefaultsValue& value) override;
  [[nodiscard]] std::optional<TextDictionary> dictionary(std::string_view key) const override;
  void setDictionary(std::string_view key, const TextDictionary& dictionary) override;
  void setEntry(std::string_view key, std::string_view entry,
                const std::optional<std::string>& text) override;

 private:
  void writeThrough();
  bool writeUnwritten();
  void leaveWhatOthersTouched();
  void leaveDamaged();
  void workInBackground();
  void finishWork();
  void foldLater();
  void becomeKept();
  void tellWhetherKept();
  void connect(std::chrono::milliseconds patience);
  void reconnect();
  void readProtected();
  void take(DefaultsContent stored);
  void keepCopyOfContent() const;
  void tryLater();

  std::filesystem::path path_;
  RunLoop& loop_;
  std::unique_ptr<DefaultsFile> file_;  // null while the disk refuses
  bool isRead_ = true;
  DefaultsMemory memory_;
  UnwrittenPlaces inWork_;         // places that the work on another thread is writing
  std::shared_ptr<DiskJob> work_;  // while it runs, the file is its own
  bool memoryIsNewest_ = false;    // the file lacks what this program wrote, or has it wrong
  Seconds retryDelay_;
  std::unique_ptr<Timer> retry_;
  std::unique_ptr<Timer> telling_;
  std::unique_ptr<Timer> folding_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace Hilalor::Desktop
