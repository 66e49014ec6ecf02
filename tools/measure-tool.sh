#!/usr/bin/env bash
# Measures time and peak memory of `sigdbref inspect` on hostile inputs of growing size, to
# show that both grow linearly. Not part of the tests: figures depend on the machine.
#
#   tools/measure-tool.sh [path/to/sigdbref] [largest size in MiB, default 32]
#
# Families of input:
#   nested  levels of [L][L-4][len(V)][V][01] around 0000000100000000, behind a block header:
#           every level looks like a nested record and like a vector of records
#   blocks  blocks ffffffff00000000 (an obsolete property, skipped) and then 0000000500000000,
#           which a middleware record fails on at the very end
#   zeros   zero bytes: the most frames and blocks the bytes can hold
#   separators
#           an element details answer (5004) whose callsign table text is "#$" over and over:
#           every two bytes are one whole connection of NULL values
# Output: family, mode, input bytes, exit status, seconds, peak resident MiB, peak / input.
set -euo pipefail
tool=${1:-build/default/bin/sigdbref}
largest=${2:-32}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

generate() { # family size-in-bytes file
    python3 - "$1" "$2" "$3" <<'PY'
import struct, sys
family, size, path = sys.argv[1], int(sys.argv[2]), sys.argv[3]
if family == 'nested':
    levels = (size - 16) // 13
    heads = []
    for level in range(levels, 0, -1):
        inner = 8 + 13 * (level - 1)
        heads.append(struct.pack('>iiI', inner + 5, inner + 1, inner))
    x = b''.join(heads) + bytes.fromhex('0000000100000000') + b'\x01' * levels
    data = struct.pack('>ii', 0, len(x)) + x
elif family == 'blocks':
    data = bytes.fromhex('ffffffff00000000') * (size // 8 - 1) + bytes.fromhex('0000000500000000')
elif family == 'separators':
    # A list of one blank element detail; its last frame is the callsign table text (tag 1111,
    # size, C string), here given a text of separators in front of the blank table's text.
    blank = bytes.fromhex(
        '00010001000001000800000000000000010001000200010002000200000002000000040002000000050002000000'
        '06000200000007000200000003000000040000111e00020013000000000000000000000000000000000000000000'
        '00000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000'
        '00000000000000000010650002000012670002000012690001001268000000010002000000020002000000090000'
        '000400020000000500020000000600020000000700020000000a0000000b0000000c0000000d0000000100080000'
        '000000000000000100020000000200020000000e0000000400020000000500020000000600020000000700020000'
        '000f0000001000000001000800000000000000000002000200000008000800000000000000000003000800000000'
        '00000000000400080000000000000000001100010100120000001300000014000000150000001600000017000000'
        '18000000190000')
    table = b'#%#%0::0#~0::0' + b'#~' * 15
    text = b'#$' * ((size - len(blank) - 9 - len(table)) // 2) + table
    data = blank + struct.pack('>hhI', 1111, -1, len(text) + 1) + text + b'\0'
else:
    data = bytes(size)
open(path, 'wb').write(data)
PY
}

measure() { # family mode-arguments...
    local family=$1 size=$2; shift 2
    local input="$work/$family-$size.bin"
    [[ -f $input ]] || generate "$family" "$size" "$input"
    local bytes status
    bytes=$(stat -c %s "$input")
    set +e
    /usr/bin/time -f '%e %M' -o "$work/time" "$tool" inspect "$@" "$input" >/dev/null 2>"$work/err"
    status=$?
    set -e
    read -r seconds kib < <(tail -n 1 "$work/time")
    awk -v f="$family" -v m="$*" -v b="$bytes" -v s="$status" -v t="$seconds" -v k="$kib" \
        'BEGIN { printf "%-7s %-24s %10d  exit %d  %7.2f s  %7.1f MiB  %6.2fx\n", f, m, b, s, t, k / 1024, k * 1024 / b }'
}

mib=1
while (( mib <= largest )); do
    size=$(( mib * 1024 * 1024 ))
    for family in nested blocks zeros; do
        measure "$family" "$size" --raw column
        measure "$family" "$size" --raw property
        measure "$family" "$size" --record ProductVersion
    done
    measure separators "$size" --order-type 5004
    # Every connection written is about 4 KiB of JSON: past 4 MiB of input that is minutes.
    if (( mib <= 4 )); then
        measure separators "$size" --order-type 5004 --max-items all
    fi
    mib=$(( mib * 4 ))
done

# Endless input is refused once the maximum has been read.
set +e
/usr/bin/time -f '%e %M' -o "$work/time" "$tool" inspect --raw column /dev/zero >/dev/null 2>"$work/err"
status=$?
set -e
read -r seconds kib < <(tail -n 1 "$work/time")
echo "/dev/zero: exit $status after $seconds s, peak $(( kib / 1024 )) MiB: $(cat "$work/err")"
