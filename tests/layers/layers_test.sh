#!/usr/bin/env bash
# Every dependency points down: a file may include headers of its own folder
# and of folders below it, never of one beside or above it. The lower
# folders include no Qt. Usage: layers_test.sh SOURCE_DIR
set -euo pipefail
cd "$1/src"

# The order, lowest first; folders on one line stand beside each other.
layers=(
  "engine platform/runtime platform/audio link"
  "storage platform/display"
  "sound"
  "table"
  "users screens"
  "shell"
)
qt_free="engine platform/runtime platform/audio link storage"

declare -A rank
for i in "${!layers[@]}"; do
  for folder in ${layers[$i]}; do rank[$folder]=$i; done
done

# The folder of a path, into $folder: platform's halves count as folders of
# their own.
folder_of() {
  folder=${1%%/*}
  if [ "$folder" = platform ]; then
    local rest=${1#platform/}
    folder=platform/${rest%%/*}
  fi
}

faults=0
fault() { echo "$1"; faults=$((faults + 1)); }

while IFS= read -r file; do
  folder_of "$file"
  [ -n "${rank[$folder]+x}" ] || fault "$file: its folder $folder has no place in the order"
done < <(find . \( -name '*.h' -o -name '*.cpp' \) -printf '%P\n')

# Every project include, as file:header.
while IFS=: read -r file included; do
  folder_of "$file"
  own=$folder
  folder_of "$included"
  [ "$folder" = "$own" ] && continue
  if [ -z "${rank[$folder]+x}" ] || [ -z "${rank[$own]+x}" ] || [ "${rank[$folder]}" -ge "${rank[$own]}" ]; then
    fault "$file includes $included: $folder is not below $own"
  fi
done < <(grep -rE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[a-z_]+/' . |
         sed -E 's#^\./##; s#:[[:space:]]*\#[[:space:]]*include[[:space:]]*"([^"]*)".*#:\1#')

for own in $qt_free; do
  while IFS= read -r file; do fault "$file includes Qt, which $own must not"; done < <(
    grep -rlE --include='*.h' --include='*.cpp' '^[[:space:]]*#[[:space:]]*include[[:space:]]*<Q' "$own" || true)
done

[ "$faults" -eq 0 ] && echo "every include points down"
exit $((faults > 0))
