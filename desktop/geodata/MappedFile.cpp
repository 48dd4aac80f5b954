#include "desktop/geodata/MappedFile.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace Hilalor::Desktop {

std::optional<MappedFile> MappedFile::open(const std::filesystem::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return std::nullopt;
  struct stat status {};
  void* address = MAP_FAILED;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > 0) {
    const auto size = static_cast<std::size_t>(status.st_size);
    address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
  }
  close(descriptor);
  if (address == MAP_FAILED) return std::nullopt;
  return MappedFile(
      {static_cast<const std::uint8_t*>(address), static_cast<std::size_t>(status.st_size)});
}

MappedFile::MappedFile(MappedFile&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}

MappedFile& MappedFile::operator=(MappedFile&& other) noexcept {
  std::swap(bytes_, other.bytes_);
  return *this;
}

MappedFile::~MappedFile() {
  if (bytes_.empty()) return;
  munmap(const_cast<std::uint8_t*>(bytes_.data()), bytes_.size());
}

}  // namespace Hilalor::Desktop
