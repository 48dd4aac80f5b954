#include "desktop/sound/SoundModule.hpp"

#include <dlfcn.h>

#include <iostream>
#include <mutex>

#include "desktop/process/BesideProgram.hpp"

namespace Hilalor::Desktop {
namespace {

const SoundModule* load() {
  void* module =
      dlopen(besideProgram(HILALOR_INSTALLED_SOUND_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
  auto* factory =
      module == nullptr
          ? nullptr
          : reinterpret_cast<SoundModuleFactory*>(dlsym(module, HILALOR_SOUND_MODULE_FACTORY));
  if (factory != nullptr) return factory();
  std::cerr << "hilalor: no sound: " << dlerror() << '\n';
  if (module != nullptr) dlclose(module);
  return nullptr;
}

}  // namespace

const SoundModule* SoundModule::loaded() {
  static std::mutex mutex;
  static const SoundModule* module = nullptr;
  const std::lock_guard lock(mutex);
  if (module == nullptr) module = load();
  return module;
}

}  // namespace Hilalor::Desktop
