#include "companion/lint/earlier_names.h"

#include <span>

#include "companion/digest.h"

namespace morvane::companion {

namespace {

std::uint64_t digest_of(std::string_view name) {
  return xxh3_64(std::as_bytes(std::span(name)));
}

/// Half of a digest. That two flows differ and have the same one is not to be expected.
std::uint32_t digest_of(const port_flow& flow) {
  return static_cast<std::uint32_t>(xxh3_64(std::as_bytes(std::span(flow))));
}

}  // namespace

std::optional<std::uint32_t> earlier_names::add(std::string_view name, std::uint32_t dvi) {
  const std::uint64_t digest = digest_of(name);
  std::optional<std::uint32_t> first;
  index_.candidates(digest, [&](std::uint32_t earlier) {
    if (!first && digests_[earlier] == digest) {
      first = earlier;
    }
  });
  if (!first) {
    digests_[dvi] = digest;
    index_.add(digest, dvi);
  }
  return first;
}

std::optional<std::uint32_t> earlier_outputs::position_of(std::uint64_t name) const {
  std::optional<std::uint32_t> found;
  index_.candidates(name, [&](std::uint32_t position) {
    if (outputs_[position].name == name) {
      found = position;
    }
  });
  return found;
}

void earlier_outputs::add(std::string_view name, const port_flow& flow, std::uint32_t dvi) {
  const left_output output{.name = digest_of(name), .flow = digest_of(flow), .dvi = dvi};
  if (const auto position = position_of(output.name)) {
    outputs_[*position] = output;
    return;
  }
  outputs_.push_back(output);
  if (outputs_.size() <= index_.most()) {
    index_.add(output.name, static_cast<std::uint32_t>(outputs_.size() - 1));
    return;
  }
  index_ = position_index(2 * outputs_.size());
  for (std::uint32_t i = 0; i < outputs_.size(); ++i) {
    index_.add(outputs_[i].name, i);
  }
}

std::optional<std::uint32_t> earlier_outputs::find_other(std::string_view name,
                                                         const port_flow& flow) const {
  const auto position = position_of(digest_of(name));
  if (!position || outputs_[*position].flow == digest_of(flow)) {
    return std::nullopt;
  }
  return outputs_[*position].dvi;
}

}  // namespace morvane::companion
