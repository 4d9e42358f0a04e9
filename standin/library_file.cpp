#include "standin/library_file.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

#if defined(_WIN32)
#include <windows.h>
#elif defined(__linux__)
#include <elf.h>
#include <link.h>
#endif

namespace standin {
namespace {

namespace fs = std::filesystem;

/// A file's bytes, record by record.
class Image {
 public:
  explicit Image(const fs::path& file) {
    std::error_code failure;
    if (!fs::exists(file, failure)) throw std::runtime_error("no such file");
    if (fs::is_directory(file, failure)) throw std::runtime_error("is a directory");
    size_ = fs::file_size(file, failure);
    errno = 0;
    if (!failure) stream_.reset(open(file));  // what has no size, such as a pipe, might never open
    if (stream_ == nullptr) {
      throw std::runtime_error("cannot be read" + (errno != 0 ? ": " + std::generic_category().message(errno) : ""));
    }
  }

  [[nodiscard]] std::uint64_t size() const noexcept { return size_; }

  template <typename Record>
  [[nodiscard]] Record at(std::uint64_t offset) {
    need(offset, sizeof(Record));
    Record record;
    const bool isThere = std::fseek(stream_.get(), static_cast<long>(offset), SEEK_SET) == 0 &&
                         std::fread(&record, sizeof record, 1, stream_.get()) == 1;
    if (!isThere) throw std::runtime_error("cannot be read");
    return record;
  }

  /// Throws where the file ends before these bytes do.
  void need(std::uint64_t offset, std::uint64_t count) const {
    if (offset <= size_ && count <= size_ - offset) return;
    throw std::runtime_error("is cut short: its headers speak of more than its " + std::to_string(size_) + " bytes");
  }

 private:
  static std::FILE* open(const fs::path& file) noexcept {
#if defined(_WIN32)
    return _wfopen(file.c_str(), L"rb");
#else
    return std::fopen(file.c_str(), "rb");
#endif
  }

  struct Close {
    void operator()(std::FILE* stream) const noexcept { std::fclose(stream); }
  };

  std::unique_ptr<std::FILE, Close> stream_;
  std::uint64_t size_ = 0;
};

[[noreturn]] void refuse() { throw std::runtime_error("is no library for this platform"); }

#if defined(_WIN32)

void check(Image& image) {
  const auto start = image.size() < sizeof(IMAGE_DOS_HEADER) ? IMAGE_DOS_HEADER{} : image.at<IMAGE_DOS_HEADER>(0);
  if (start.e_magic != IMAGE_DOS_SIGNATURE || start.e_lfanew < 0) refuse();
  const auto position = static_cast<std::uint64_t>(start.e_lfanew);
  const auto headers = image.at<IMAGE_NT_HEADERS>(position);
#if defined(_WIN64)
  constexpr WORD kMachine = IMAGE_FILE_MACHINE_AMD64;
#else
  constexpr WORD kMachine = IMAGE_FILE_MACHINE_I386;
#endif
  if (headers.Signature != IMAGE_NT_SIGNATURE || headers.FileHeader.Machine != kMachine) refuse();
  std::uint64_t section =
      position + offsetof(IMAGE_NT_HEADERS, OptionalHeader) + headers.FileHeader.SizeOfOptionalHeader;
  for (unsigned left = headers.FileHeader.NumberOfSections; left > 0; --left, section += sizeof(IMAGE_SECTION_HEADER)) {
    const auto header = image.at<IMAGE_SECTION_HEADER>(section);
    image.need(header.PointerToRawData, header.SizeOfRawData);
  }
}

#elif defined(__linux__)

#if defined(__x86_64__)
constexpr unsigned kMachine = EM_X86_64;
#elif defined(__i386__)
constexpr unsigned kMachine = EM_386;
#elif defined(__aarch64__)
constexpr unsigned kMachine = EM_AARCH64;
#else
constexpr unsigned kMachine = EM_ARM;
#endif
constexpr unsigned char kClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

void check(Image& image) {
  using Header = ElfW(Ehdr);
  const auto header = image.size() < sizeof(Header) ? Header{} : image.at<Header>(0);
  const bool isLibrary = std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == kClass &&
                         header.e_ident[EI_DATA] == ELFDATA2LSB && header.e_machine == kMachine &&
                         header.e_type == ET_DYN && header.e_phentsize == sizeof(ElfW(Phdr));
  if (!isLibrary) refuse();
  for (unsigned index = 0; index < header.e_phnum; ++index) {
    const auto segment = image.at<ElfW(Phdr)>(header.e_phoff + std::uint64_t{index} * sizeof(ElfW(Phdr)));
    if (segment.p_type != PT_NULL) image.need(segment.p_offset, segment.p_filesz);
  }
  image.need(header.e_shoff, std::uint64_t{header.e_shnum} * header.e_shentsize);
}

#else

void check(Image&) {}

#endif

}  // namespace

void checkLibraryFile(const fs::path& file) {
  Image image(file);
  check(image);
}

}  // namespace standin
