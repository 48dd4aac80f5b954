#include "platform/Platform.hpp"

#include <cassert>

namespace Hilalor {
namespace {

Platform* installed = nullptr;

}  // namespace

Platform& Platform::current() {
  assert(installed != nullptr);
  return *installed;
}

void Platform::install(Platform* platform) {
  installed = platform;
}

}  // namespace Hilalor
