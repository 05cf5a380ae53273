#!/bin/sh
# Builds the XML document-layer fuzz target (the wx-free files
# UI/toolkit/xml/Xml*.cpp) with clang's libFuzzer and the
# address and undefined-behaviour sanitizers, then runs it on one core.
#   tests/fuzz/run-xml-fuzzer.sh [seconds]      (default 60)
# Work files go to fuzz-out/ at the top of the tree; an input that crashes
# is written to fuzz-out/xml/artifacts/ and belongs, once fixed, in
# tests/data/xml/regressions/ (replayed by uikit_tests).
set -eu
target=xml
. "$(dirname "$0")/fuzz-common.sh"

"$cxx" $fuzz_flags \
    -I"$root/UI/toolkit" -I"$root/tests/UI/xml" \
    "$here/xml_fuzzer.cpp" "$root/tests/UI/xml/XmlTestTree.cpp" "$root"/UI/toolkit/xml/Xml[A-Z]*.cpp \
    -o "$out/xml_fuzzer"

# The seed corpus stays as committed; new inputs go to the work corpus.
# libFuzzer writes its log (fuzz-0.log) to the current directory.
cd "$out"
exec "$out/xml_fuzzer" "$out/corpus" "$here/corpus/xml" "$root/tests/data/xml/regressions" \
    -dict="$here/xml.dict" -max_total_time="$seconds" -max_len="${MAX_LEN:-4096}" -jobs=1 -workers=1 \
    -artifact_prefix="$out/artifacts/" -print_final_stats=1
