// What a pack run does with its folder: finds the inputs, and appends every section of the package.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "driver/package_writer.h"
#include "format/input_list.h"

namespace morvane {

/// The files to pack. The DVI and the header at the same position belong together.
struct pack_inputs {
  std::string folder;
  input_list dvis;
  input_list headers;
};

/// Finds the DVIs of the folder and their headers; with vproc, checks that the DAG names differ.
/// Returns 0; or -1 after the message of what is wrong with the folder.
int find_inputs(pack_inputs& inputs, bool vproc);

/// The package's first record.
pkg_header header_of(std::size_t dvi_count);

/// Appends all sections of the package. The size is the sum of the sizes in the records. It is the
/// size of the file modulo 2^32 if the counts of one parser agree with the records of the other.
/// Returns 0; or -1 after the message of what failed.
int append_sections(package_writer& package, const pack_inputs& inputs, bool vproc,
                    std::uint32_t& size);

/// Whether a file is one of the inputs, under any name.
bool is_input(const file_identity& file, const pack_inputs& inputs);

}  // namespace morvane
