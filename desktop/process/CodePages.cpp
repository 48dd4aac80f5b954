#include "desktop/process/CodePages.hpp"

#include <link.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace Hilalor::Desktop {
namespace {

using Segment = ElfW(Phdr);
using Tag = ElfW(Dyn);

std::span<const Segment> segments(const dl_phdr_info& object) {
  return {object.dlpi_phdr, object.dlpi_phnum};
}

/// Whether the linker has written into the object's code, as into that of some 32-bit libraries:
/// no file has those pages.
bool isCodeChanged(const dl_phdr_info& object) {
  const auto all = segments(object);
  const auto dynamic = std::find_if(
      all.begin(), all.end(), [](const Segment& segment) { return segment.p_type == PT_DYNAMIC; });
  if (dynamic == all.end()) return true;
  const auto* tag = reinterpret_cast<const Tag*>(object.dlpi_addr + dynamic->p_vaddr);
  for (; tag->d_tag != DT_NULL; ++tag) {
    if (tag->d_tag == DT_TEXTREL) return true;
    if (tag->d_tag == DT_FLAGS && (tag->d_un.d_val & DF_TEXTREL) != 0) return true;
  }
  return false;
}

int releaseObject(dl_phdr_info* object, std::size_t, void*) {
  if (isCodeChanged(*object)) return 0;
  const auto page = static_cast<std::uintptr_t>(getpagesize());
  for (const auto& segment : segments(*object)) {
    // What can be written has changed since it was read from the file.
    if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0) continue;
    const std::uintptr_t start = object->dlpi_addr + segment.p_vaddr;
    const auto firstPage = start / page * page;
    madvise(reinterpret_cast<void*>(firstPage), start + segment.p_memsz - firstPage, MADV_DONTNEED);
  }
  return 0;
}

}  // namespace

void releaseCodePages() {
  dl_iterate_phdr(releaseObject, nullptr);
}

}  // namespace Hilalor::Desktop
