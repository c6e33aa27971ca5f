#include "cli/lint/header/header_reading.h"

#include <algorithm>
#include <utility>

#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "headers/vproc_variables.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

/// Writes down what a parser tells.
struct recorder {
  std::string_view header;
  std::span<const macro_row> macros;
  kind_reading& reading;
  std::vector<std::size_t> counted{};        // places of names, in their order
  std::vector<std::size_t> counted_other{};  // of the other kind that the same parser counts
  std::size_t last = 0;                      // the place of the last name or value

  [[nodiscard]] std::size_t place_of(std::string_view text) const {
    return static_cast<std::size_t>(text.data() - header.data());
  }

  void begin_block(std::string_view name) {
    last = place_of(name);
    reading.blocks.push_back({.name = name, .end = header.size(), .is_counted = true});
  }
  void end_block(std::string_view line) const { reading.blocks.back().end = place_of(line); }
  void name_dag(std::string_view name) { begin_block(name); }
  void read_line(std::string_view /*line*/, const macro_match& match) {
    if (match.row != nullptr) {
      last = place_of(match.value);
      const auto row = static_cast<std::uint64_t>(match.row - macros.data());
      reading.values.push_back({.place = last & 0xFFFFFFFFFFFU,
                                .length = match.value.size() & 0xFFFU,
                                .row = row & 0xFFU});
      reading.blocks.back().taken |= std::uint64_t{1} << row;
    }
  }
  void count_port(std::string_view name, const port_class& ports_class) {
    (&ports_class == &input_ports ? counted : counted_other).push_back(place_of(name));
  }
  void count_variable(std::string_view name) { counted.push_back(place_of(name)); }
  void count_smb(std::string_view name) { counted_other.push_back(place_of(name)); }
};

/// Holds the record that a parser fills, and hands on those that are complete.
template <class Record>
class record_slot {
 public:
  using value_type = Record;

  record_slot(object_kind kind, const kind_reading& reading, const record_sink& sink)
      : kind_(kind), reading_(reading), sink_(sink) {}

  void push_back(const Record& empty) {
    hand_on();
    record_ = empty;
    is_full_ = true;
    ++number_;
  }
  Record& back() { return record_; }
  void pop_back() { is_full_ = false; }
  void hand_on() {
    if (is_full_) {
      sink_(kind_, reading_.blocks[number_ - 1].name, bytes_of(record_));
    }
    is_full_ = false;
  }

 private:
  object_kind kind_;
  const kind_reading& reading_;
  const record_sink& sink_;
  Record record_{};
  bool is_full_ = false;
  std::size_t number_ = 0;
};

void note_stop(const recorder& told, kind_reading& reading, int status) {
  reading.is_stopped = status != 0;
  reading.stop = status != 0 ? told.last : told.header.size();
}

/// Both lists of places are in the order of the header.
void mark_uncounted(std::string_view header, kind_reading& reading,
                    const std::vector<std::size_t>& counted) {
  auto next = counted.begin();
  for (parsed_block& block : reading.blocks) {
    const auto place = static_cast<std::size_t>(block.name.data() - header.data());
    next = std::lower_bound(next, counted.end(), place);
    block.is_counted = next != counted.end() && *next == place;
  }
}

kind_reading& part_of(header_reading& reading, object_kind kind) {
  return reading.kinds.at(static_cast<std::size_t>(kind));
}

/// Reads all blocks of a kind.
template <class Record>
void read_kind(header_reading& reading, object_kind kind, const block_format& format,
               const Record& empty, const record_sink& sink) {
  kind_reading& result = part_of(reading, kind);
  recorder told{.header = reading.header, .macros = format.macros, .reading = result};
  record_slot<Record> slot(kind, result, sink);
  note_stop(told, result, read_blocks(reading.header, format, empty, slot, told));
  slot.hand_on();
}

/// Reads what belongs to the DAG itself. Returns which ports it counts.
recorder read_dag(header_reading& reading) {
  kind_reading& dag = part_of(reading, object_kind::dag);
  recorder told{.header = reading.header, .macros = dag_macros, .reading = dag};
  note_stop(told, dag, read_dag_fields(reading.dvi, reading.header, told));
  reading.dag_name = dag.blocks.empty() ? std::string_view() : dag.blocks[0].name;
  return told;
}

void read_vproc(header_reading& reading, const record_sink& sink) {
  kind_reading& variables = part_of(reading, object_kind::variable);
  recorder told{.header = reading.header, .macros = variable_macros, .reading = variables};
  reading.vproc = count_vproc_records(reading.header, told);
  read_kind(reading, object_kind::variable, variable_blocks, var_desc{}, sink);
  mark_uncounted(reading.header, variables, told.counted);
  read_kind(reading, object_kind::smb, smb_blocks, smb_desc{}, sink);
  mark_uncounted(reading.header, part_of(reading, object_kind::smb), told.counted_other);
}

}  // namespace

std::span<const macro_row> macros_of(object_kind kind) {
  switch (kind) {
    case object_kind::dag:
      return dag_macros;
    case object_kind::variable:
      return variable_macros;
    case object_kind::smb:
      return smb_macros;
    default:
      return port_macros;
  }
}

header_reading read_header(std::string_view header, bool vproc, std::int32_t index,
                           std::size_t position, const record_sink& sink) {
  const collected_messages forgotten(false);
  header_reading reading{.header = header};
  const recorder told = read_dag(reading);
  read_kind(reading, object_kind::input, port_blocks(input_ports), empty_port(), sink);
  read_kind(reading, object_kind::output, port_blocks(output_ports), empty_port(), sink);
  complete_dag_description(reading.dvi, index, position);
  mark_uncounted(header, part_of(reading, object_kind::input), told.counted);
  mark_uncounted(header, part_of(reading, object_kind::output), told.counted_other);
  if (vproc) {
    read_vproc(reading, sink);
  }
  return reading;
}

}  // namespace morvane::cli
