#!/bin/sh
# Builds the pack fuzz target (language-file lines, zip and directory packs:
# UI/toolkit/appearance/{IPack,ZipPack,DirectoryPack,LanguageLine,...}.cpp)
# with clang's libFuzzer and the address and undefined-behaviour sanitizers,
# then runs it on one core. The zip reader and the line splitter of Toolkit
# are compiled in too, so that their branches guide the fuzzer; the rest of
# Toolkit comes from the library in build/ (build the Toolkit target first).
#   tests/fuzz/run-pack-fuzzer.sh [seconds]      (default 60)
# Work files go to fuzz-out/pack/ at the top of the tree; an input that
# crashes is written to fuzz-out/pack/artifacts/.
set -eu
target=pack
. "$(dirname "$0")/fuzz-common.sh"
lib="$root/build/lib"

app="$root/UI/toolkit/appearance"
# shellcheck disable=SC2046
"$cxx" $fuzz_flags \
    -I"$root/UI/toolkit" -I"$root/platform" $(wx-config --cxxflags base) \
    "$here/pack_fuzzer.cpp" "$app/IPack.cpp" "$app/ZipPack.cpp" "$app/DirectoryPack.cpp" \
    "$app/LanguageLine.cpp" "$app/PackLimits.cpp" "$app/TextExcerpt.cpp" "$root/UI/toolkit/xml/ErrorSink.cpp" \
    "$root/platform/Toolkit/ArchiveZip.cpp" "$root/platform/Toolkit/ZipInputStream.cpp" \
    "$root/platform/Toolkit/LineReader.cpp" \
    -L"$lib" -Wl,-rpath,"$lib" -lToolkit $(wx-config --libs base) -lzip \
    -o "$out/pack_fuzzer"

# The seed corpus stays as committed; new inputs go to the work corpus.
cd "$out"
exec "$out/pack_fuzzer" "$out/corpus" "$here/corpus/pack" \
    -max_total_time="$seconds" -max_len="${MAX_LEN:-8192}" -timeout=1 -jobs=1 -workers=1 \
    -artifact_prefix="$out/artifacts/" -print_final_stats=1
