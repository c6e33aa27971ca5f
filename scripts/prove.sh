#!/usr/bin/env bash
# Proves that the reader of packages, src/view/package_view.c, keeps the contracts above its functions, with
# 64-bit and with 32-bit addresses. Prints how many goals there are and were proved, and fails when one is
# not. Installs what is missing.
#
#     scripts/prove.sh [--mutations]
#
# --mutations   breaks one check after the other instead, and fails when the proof still holds
source "$(dirname "$0")/requirements.sh"

require_proof

source=src/view/package_view.c
predicates=src/view/package_view.acsl
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# why3 keeps what it finds out about the prover in the home folder.
export HOME=$scratch
why3 config detect >"$scratch/prover" 2>&1

# The prover gives a goal up after a number of steps, so that a busy machine proves what others prove. No goal
# takes half as many. The seconds are far more than those steps take.
steps=1500000
seconds=3600

# proof MACHINE FILE [OPTION ...]: the tool's output.
proof() {
  frama-c -machdep "$1" -cpp-extra-args="-include $predicates -I src/view/include -I src/format/include" \
    -wp -wp-rte -warn-unsigned-overflow -warn-unsigned-downcast -warn-signed-downcast \
    -wp-prover cvc4 -wp-warn-key pedantic-assigns=inactive -wp-steps $steps -wp-timeout $seconds \
    -wp-par "$(nproc)" "${@:3}" "$2"
}

# How the line of a goal that was not proved begins: with the prover, the goal's name and not the word Valid.
not_proved='^\[wp\] \[[^]]*\] Goal typed_([A-Za-z0-9_]+) : [^V]'

# goals LOG: "PROVED / ALL"
goals() {
  sed -n 's/^\[wp\] Proved goals: *//p' "$1"
}

# doubts LOG: the tool's warnings that a contract or a line of C is not understood, or taken for granted. Warnings
# about string literals, which have signed characters there, do not matter.
doubts() {
  awk '/Warning:/ { warning = $0; if (/Warning: *$/) { getline; warning = warning $0 }
    if (warning !~ /source: sint8\*/) print warning }' "$1"
}

# all_proved LOG: every goal was proved, and the tool understood everything.
all_proved() {
  local proved all
  read -r proved _ all < <(goals "$1") && [ "$proved" -gt 0 ] && [ "$proved" = "$all" ] && [ -z "$(doubts "$1")" ]
}

prove() {
  local machine proved all
  for machine in gcc_x86_64 gcc_x86_32; do
    proof $machine $source >"$scratch/log"
    read -r proved _ all < <(goals "$scratch/log")
    echo "$machine: $all goals, $proved proved"
    all_proved "$scratch/log" || { grep -A 2 -E "$not_proved" "$scratch/log"; doubts "$scratch/log"; exit 1; }
  done
}

# mutation FUNCTION TEXT REPLACEMENT: breaks a check, whose text is once in the function, and tries to
# prove the function again, until a goal is not proved.
mutation() {
  local whole body rest process
  whole=$(<$source)
  body=$(awk -v "begin=^[a-z].*[ *]$1[(]" '$0 ~ begin { inside = 1 } inside { print } /^}/ { inside = 0 }' $source)
  rest=${body#*"$2"}
  if [ "$rest" = "$body" ] || [ "${rest#*"$2"}" != "$rest" ]; then
    echo "$1: \"$2\" is not there exactly once" >&2
    exit 1
  fi
  printf '%s\n' "${whole/"$body"/"${body/"$2"/"$3"}"}" >"$scratch/mutant.c"
  if [ ! -e "$scratch/$1.proved" ]; then
    proof gcc_x86_64 $source -wp-fct "$1" >"$scratch/log"
    all_proved "$scratch/log" || { echo "$1 is not proved as it is" >&2; exit 1; }
    touch "$scratch/$1.proved"
  fi
  : >"$scratch/log"
  proof gcc_x86_64 "$scratch/mutant.c" -wp-fct "$1" >"$scratch/log" 2>&1 &
  process=$!
  while kill -0 $process 2>/dev/null && ! grep -q -E "$not_proved" "$scratch/log"; do
    sleep 0.2
  done
  kill -- -$process 2>/dev/null || :
  wait $process 2>/dev/null || :
  mutations=$((mutations + 1))
  if grep -q -E "$not_proved" "$scratch/log"; then
    echo "$1: $2 -> $3: $(sed -n -E "s/$not_proved.*/\1/p" "$scratch/log" | head -n 1)"
  elif all_proved "$scratch/log"; then
    echo "not noticed: $1: $2 -> $3"
    unnoticed=$((unnoticed + 1))
  else
    cat "$scratch/log" >&2
    exit 1
  fi
}

mutate() {
  # Each proof is a process group, so that all its processes can be ended.
  set -m
  # What cannot be proved takes all its time, so it gets less. Every function as it is must be proved in it too.
  local mutations=0 unnoticed=0 seconds=30
  mutation has 'begin <= view->size && ' ''
  mutation has 'begin <= view->size' 'begin < view->size'
  mutation has 'skipped <= view->size - begin' 'skipped <= view->size'
  mutation has 'bytes <= view->size - begin - skipped' 'bytes <= view->size - begin'
  mutation has 'bytes <= view->size - begin - skipped' 'bytes < view->size - begin - skipped'
  mutation check_header 'size < HEADER_BYTES' 'size < HEADER_BYTES - 1'
  mutation check_header '<= size - HEADER_BYTES' '<= size'
  mutation check_header '<= size - HEADER_BYTES' '< size - HEADER_BYTES'
  mutation check_dvi 'block % WRAP !=' 'block !='
  mutation check_dvi 'ports > left' 'ports >= left'
  mutation check_dvi 'ports > left' '0'
  mutation check_dvi 'block > left' 'ports > left'
  mutation check_dvis 'check_dvi(dvi, size - begin)' 'check_dvi(dvi, size)'
  mutation check_dvis 'i < dvi_num; ++i' 'i <= dvi_num; ++i'
  mutation check_dvis 'view->sound_dvis = i' 'view->sound_dvis = dvi_num'
  mutation check_vproc 'block % WRAP !=' 'block !='
  mutation check_vproc 'variables > left' 'variables >= left'
  mutation check_vproc 'block > left' 'block >= left'
  mutation check_vprocs 'check_vproc(vproc, size - begin)' 'check_vproc(vproc, size)'
  mutation check_vproc_section '> view->size - *at' '> view->size'
  mutation check_vproc_section '> view->size - *at' '>= view->size - *at'
  mutation check_package '*at < view->size &&' '0 &&'
  mutation check_package '*at < view->size ?' '0 ?'
  mutation describe_dvi 'present -= ports' 'present -= claimed'
  mutation describe_vproc 'offset += (size_t)variables' 'offset += (size_t)block'
  mutation describe 'MORVANE_VIEW_IMAGE_CUT <= status' 'MORVANE_VIEW_IMAGE_CUT < status'
  mutation morvane_view_open 'damage != NULL' '1'
  mutation text_length 'length < width &&' 'length <= width &&'
  mutation load_dvi 'position >= view->sound_dvis' 'position > view->sound_dvis'
  mutation load_dvi 'HEADER_BYTES, desc, DVI_BYTES' 'HEADER_BYTES, desc, 0'
  mutation load_dvi 'table, vproc, VPROC_BYTES' '0, vproc, VPROC_BYTES'
  mutation morvane_view_first 'HEADER_BYTES, table, 0' 'HEADER_BYTES, table, 1'
  mutation morvane_view_next 'dvi->position == UINT32_MAX' '0'
  mutation morvane_view_next 'view, dvi->block, ports' 'view, 0, ports'
  mutation morvane_view_next 'view, dvi->vproc_block, vproc' 'view, 0, vproc'
  mutation load_port 'skipped, PORT_BYTES' 'skipped, PORT_BYTES - 1'
  mutation load_port 'view, dvi->block, skipped' 'view, 0, skipped'
  mutation morvane_view_input 'index >= dvi->input_num' 'index > dvi->input_num'
  mutation morvane_view_output 'index >= dvi->output_num' 'index >= dvi->input_num'
  mutation morvane_view_image 'ports, dvi->dvi_img_size' '0, dvi->dvi_img_size'
  mutation morvane_view_variable 'index >= dvi->variable_num' 'index >= dvi->smb_num'
  mutation morvane_view_variable 'skipped, VAR_BYTES' 'skipped, SMB_BYTES'
  mutation morvane_view_smb 'index >= dvi->smb_num' 'index > dvi->smb_num'
  mutation morvane_view_smb 'skipped, SMB_BYTES' '0, SMB_BYTES'
  mutation morvane_text_equals 'i < text.length; ++i' 'i <= text.length; ++i'
  mutation morvane_text_equals "string[i] == '\\0' || " ''
  echo "$mutations mutations, $unnoticed not noticed"
  [ $unnoticed -eq 0 ]
}

case ${1-} in
  '') prove ;;
  --mutations) mutate ;;
  *)
    echo "usage: scripts/prove.sh [--mutations]" >&2
    exit 2
    ;;
esac
