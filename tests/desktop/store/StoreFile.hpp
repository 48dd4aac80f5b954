#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "desktop/store/SqliteConnection.hpp"
#include "desktop/store/SqliteDefaultsStore.hpp"
#include "tests/fakes/TemporaryFolder.hpp"
#include "tests/fakes/VirtualLoop.hpp"

namespace Hilalor::Desktop {

/// Tests of the store over a file in a folder of their own.
class StoreFile : public testing::Test {
 protected:
  [[nodiscard]] std::filesystem::path file() const {
    return folder.path() / "50%20? #1" / "defaults.sqlite";
  }

  /// What a program that starts now finds.
  [[nodiscard]] std::unique_ptr<SqliteDefaultsStore> open() {
    return std::make_unique<SqliteDefaultsStore>(file(), loop);
  }

  /// Runs statements as another program would.
  void runSql(const std::string& statements) const {
    const auto connection = SqliteConnection::open(file(), SqliteConnection::Access::readWrite);
    ASSERT_TRUE(connection);
    ASSERT_EQ(connection->execute(statements), SQLITE_OK) << statements;
  }

  [[nodiscard]] static std::string bytes(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  static void setBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
  }

  /// The databases beside the store's own that were set aside.
  [[nodiscard]] std::vector<std::filesystem::path> setAsideFiles() const {
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(file().parent_path())) {
      const auto& path = entry.path();
      if (path != file() && path.extension() == ".sqlite") found.push_back(path);
    }
    return found;
  }

  TemporaryFolder folder;
  VirtualLoop loop;
};

}  // namespace Hilalor::Desktop
