# Sourced by the run-*-fuzzer.sh scripts with $target set (xml, ini, pack):
# the run length, the folders, the compiler and the sanitizer flags that
# every fuzz target shares.
seconds=${1:-60}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
out="$root/fuzz-out/$target"
cxx=${CXX_FUZZ:-clang++-14}
fuzz_flags="-std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined"
mkdir -p "$out/corpus" "$out/artifacts"
