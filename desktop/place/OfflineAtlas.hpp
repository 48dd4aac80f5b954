#pragma once

#include <filesystem>
#include <memory>

#include "platform/Atlas.hpp"
#include "platform/RunLoop.hpp"

namespace Hilalor::Desktop {

/// The world from the data that ship with the program, without a network. Where data are missing or
/// damaged the map lacks them.
class OfflineAtlas final : public Atlas {
 public:
  /// The folder that holds `map/map.bin`, `places/places.bin` and `names/names.bin`.
  OfflineAtlas(std::filesystem::path folder, RunLoop& loop);

  /// Maps the files; they are let go with the map.
  [[nodiscard]] std::unique_ptr<WorldMap> open() override;

 private:
  std::filesystem::path folder_;
  RunLoop& loop_;
};

}  // namespace Hilalor::Desktop
