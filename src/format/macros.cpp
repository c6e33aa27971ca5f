#include "format/macros.h"

#include <algorithm>
#include <cstring>

namespace morvane {

namespace {

template <class Field>
void put(std::span<std::byte> record, std::size_t offset, Field value) {
  std::memcpy(record.subspan(offset, sizeof value).data(), &value, sizeof value);
}

template <class Field>
Field get(std::span<const std::byte> record, std::size_t offset) {
  Field value;
  std::memcpy(&value, record.subspan(offset, sizeof value).data(), sizeof value);
  return value;
}

}  // namespace

void store_number(std::span<std::byte> record, const macro_row& row, long number) {
  switch (row.kind) {
    case macro_kind::word:
      put(record, row.offset, static_cast<std::uint32_t>(number));
      break;
    case macro_kind::byte:
    case macro_kind::signed_byte:
      put(record, row.offset, static_cast<std::uint8_t>(number));
      break;
    case macro_kind::bit:
    case macro_kind::guarded_bit: {
      const std::byte mask{row.mask};
      std::byte& flags = record[row.offset];
      flags = (number & 1) != 0 ? flags | mask : flags & ~mask;
      break;
    }
    case macro_kind::text:
      break;
  }
}

long load_number(std::span<const std::byte> record, const macro_row& row) {
  switch (row.kind) {
    case macro_kind::word:
      return get<std::uint32_t>(record, row.offset);
    case macro_kind::byte:
      return get<std::uint8_t>(record, row.offset);
    case macro_kind::signed_byte:
      return get<std::int8_t>(record, row.offset);
    case macro_kind::bit:
    case macro_kind::guarded_bit:
      return (get<std::uint8_t>(record, row.offset) & row.mask) != 0 ? 1 : 0;
    case macro_kind::text:
      break;
  }
  return 0;
}

std::string_view load_text(std::span<const std::byte> record, const macro_row& row) {
  const auto field = record.subspan(row.offset, MORVANE_IO_NAME_WIDTH);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the bytes of a text are characters
  return text_of(std::span(reinterpret_cast<const char*>(field.data()), field.size()));
}

void store_text(std::span<std::byte> field, std::string_view text) {
  std::memcpy(field.data(), text.data(), text.size());
  std::ranges::fill(field.subspan(text.size()), std::byte{0});
}

}  // namespace morvane
