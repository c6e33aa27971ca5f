// The hardening that can be seen in the files of the program and the library. Stack clash
// protection and fortified calls leave no certain trace in a file.
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "harness/run_tool.h"
#include "harness/sanitizer.h"

namespace morvane::test {
namespace {

/// A 64-bit ELF file as bytes.
struct elf_file {
  std::string bytes;
};

elf_file read_elf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {.bytes = {std::istreambuf_iterator<char>(file), {}}};
}

template <class Record>
std::vector<Record> records(const elf_file& elf, std::size_t offset, std::size_t size) {
  std::vector<Record> found(size / sizeof(Record));
  std::memcpy(found.data(), elf.bytes.data() + offset, found.size() * sizeof(Record));
  return found;
}

Elf64_Ehdr elf_header(const elf_file& elf) {
  return records<Elf64_Ehdr>(elf, 0, sizeof(Elf64_Ehdr))[0];
}

std::vector<Elf64_Phdr> segments(const elf_file& elf, Elf64_Word type) {
  const Elf64_Ehdr start = elf_header(elf);
  auto all = records<Elf64_Phdr>(elf, start.e_phoff, start.e_phnum * sizeof(Elf64_Phdr));
  std::erase_if(all, [&](const Elf64_Phdr& segment) { return segment.p_type != type; });
  return all;
}

/// The value of a dynamic entry, 0 if it is missing.
Elf64_Xword dynamic_value(const elf_file& elf, Elf64_Sxword tag) {
  const Elf64_Phdr dynamic = segments(elf, PT_DYNAMIC).at(0);
  for (const auto& entry : records<Elf64_Dyn>(elf, dynamic.p_offset, dynamic.p_filesz)) {
    if (entry.d_tag == tag) {
      return entry.d_un.d_val;
    }
  }
  return 0;
}

std::size_t file_offset(const elf_file& elf, Elf64_Addr address) {
  for (const Elf64_Phdr& segment : segments(elf, PT_LOAD)) {
    if (address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz) {
      return address - segment.p_vaddr + segment.p_offset;
    }
  }
  throw std::out_of_range("address");
}

/// Finds a dynamic symbol. The table of names follows the table of symbols.
Elf64_Sym dynamic_symbol(const elf_file& elf, std::string_view name) {
  const std::size_t names = file_offset(elf, dynamic_value(elf, DT_STRTAB));
  const std::size_t symbols = file_offset(elf, dynamic_value(elf, DT_SYMTAB));
  for (const auto& symbol : records<Elf64_Sym>(elf, symbols, names - symbols)) {
    if (name == elf.bytes.c_str() + names + symbol.st_name) {
      return symbol;
    }
  }
  throw std::out_of_range(std::string(name));
}

class HardenedBinary : public testing::TestWithParam<const char*> {
 protected:
  elf_file elf = read_elf(GetParam() == std::string("program") ? tool_path() : library_path());
};

INSTANTIATE_TEST_SUITE_P(Pair, HardenedBinary, testing::Values("program", "library"));

TEST_P(HardenedBinary, IsPositionIndependent) {
  EXPECT_EQ(elf_header(elf).e_type, ET_DYN);
}

TEST_P(HardenedBinary, BindsItsSymbolsAtTheStartAndMakesThemReadOnly) {
  EXPECT_EQ(segments(elf, PT_GNU_RELRO).size(), 1U);
  EXPECT_NE(dynamic_value(elf, DT_FLAGS) & DF_BIND_NOW, 0U);
  EXPECT_NE(dynamic_value(elf, DT_FLAGS_1) & DF_1_NOW, 0U);
}

TEST_P(HardenedBinary, HasNoMemoryThatIsBothWritableAndExecutable) {
  ASSERT_EQ(segments(elf, PT_GNU_STACK).size(), 1U);
  EXPECT_EQ(segments(elf, PT_GNU_STACK)[0].p_flags & PF_X, 0U);
  for (const Elf64_Phdr& segment : segments(elf, PT_LOAD)) {
    EXPECT_NE(segment.p_flags & (PF_W | PF_X), Elf64_Word{PF_W | PF_X});
  }
  EXPECT_EQ(dynamic_value(elf, DT_TEXTREL), 0U);
}

TEST(HardenedProgram, IsMarkedAsPositionIndependent) {
  EXPECT_NE(dynamic_value(read_elf(tool_path()), DT_FLAGS_1) & DF_1_PIE, 0U);
}

TEST(HardenedLibrary, ChecksItsStack) {
  EXPECT_NO_THROW(dynamic_symbol(read_elf(library_path()), "__stack_chk_fail"));
}

TEST(HardenedLibrary, BeginsItsFunctionWithAProtectedBranchTarget) {
  if (under_sanitizer) {
    GTEST_SKIP() << "a sanitizer may put the type of a function before its first instruction";
  }
  const elf_file elf = read_elf(library_path());
  const Elf64_Sym entry = dynamic_symbol(elf, "morvane_main");
  const auto instruction = records<std::uint32_t>(elf, file_offset(elf, entry.st_value), 4)[0];
  if (elf_header(elf).e_machine == EM_AARCH64) {
    constexpr std::uint32_t paciasp = 0xD503233F;
    EXPECT_EQ(instruction, paciasp);
  } else {
    constexpr std::uint32_t endbr64 = 0xFA1E0FF3;
    EXPECT_EQ(instruction, endbr64);
  }
}

}  // namespace
}  // namespace morvane::test
