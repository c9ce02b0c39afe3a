# shellcheck shell=bash disable=SC2154
# What ./test, ./run, ./package and ./bench share; they source it with `top`, the checkout's path, set.
out=$top/out
logs=$out/logs
mkdir -p "$logs"

# A path as Wine's programs see it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

ZENTRIK_BIN=$(windows_path "$out/win64")
ZENTRIK_SOURCE=$(windows_path "$top")
ZENTRIK_OUT=$(windows_path "$out")
export ZENTRIK_BIN ZENTRIK_SOURCE ZENTRIK_OUT

step() { printf '%s\n' "$*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# build PRESET [TARGET...]: configures where that was not done, or for other presets, and builds. Shows
# what the compiler says only when it fails; returns whether it worked.
build() {
    local preset=$1 log=$logs/build-$1.log target=()
    shift
    [ $# -eq 0 ] || target=(--target "$@")
    step "Building $preset${*:+ ($*)}"
    if { [ "$out/$preset/build.ninja" -nt "$top/CMakePresets.json" ] ||
        (cd "$top" && cmake --fresh --preset "$preset"); } >"$log" 2>&1 &&
        cmake --build "$out/$preset" "${target[@]}" >>"$log" 2>&1; then
        return 0
    fi
    grep -E -A3 '(error|Error|FAILED|undefined reference)' "$log" | head -60 >&2 || tail -20 "$log" >&2
    printf 'The build %s failed; all of it: %s\n' "$preset" "$log" >&2
    return 1
}

# ImageMagick's converter, which has several names.
image_converter() { command -v convert-im6.q16 || command -v magick || command -v convert; }

# Turns the BMP files of a folder into PNG files.
bitmaps_to_png() {
    local picture
    for picture in "$1"/*.bmp; do
        [ -e "$picture" ] || continue
        "$(image_converter)" "$picture" "${picture%.bmp}.png" && rm -f "$picture"
    done
}
