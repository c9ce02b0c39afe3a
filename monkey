#!/usr/bin/env bash
# Does things at random with the shipped program under Wine; it must answer after each and touch no
# file that it was not given:
#     ./monkey SEED ACTIONS    an odd seed runs on Windows NT, an even one on Windows 98
#     ./monkey --brief         three seeds, 150 actions each
# Failures are told with the last actions; a picture goes to out/screenshots, all actions to out/logs.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
"$top/scripts/packages"
. "$top/scripts/common.sh"
cd "$top"

usage="./monkey SEED ACTIONS, or ./monkey --brief"
case $*:$# in
--brief:1)
    seeds=(1 2 3)
    actions=150
    ;;
[0-9]*\ [0-9]*:2)
    seeds=("$1")
    actions=$2
    ;;
*) fail "$usage" ;;
esac

build win64 monkey
code=0
for seed in "${seeds[@]}"; do
    log=$logs/monkey-$seed.txt
    end=0
    timeout -k 10 $((60 + actions)) tests/wine_session \
        wine "$out/win64/tests/monkey.exe" "$seed" "$actions" || end=$?
    [ "$end" = 0 ] || code=1
    if [ "$end" = 124 ]; then
        echo "seed $seed: never ended; the last actions:"
        tail -20 "$log"
    fi
done
if [ "$code" != 0 ]; then
    bitmaps_to_png "$out/screenshots"
    echo "Pictures: $out/screenshots, actions: $logs"
fi
exit "$code"
