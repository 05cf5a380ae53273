#!/bin/sh
# Builds the INI reader fuzz target (platform/Toolkit/IniFile.cpp and the
# few Toolkit files it needs) with clang's libFuzzer and the address and
# undefined-behaviour sanitizers, then runs it on one core.
#   tests/fuzz/run-ini-fuzzer.sh [seconds]      (default 60)
# Work files go to fuzz-out/ini/ at the top of the tree; an input that
# crashes or takes more than a second is written to fuzz-out/ini/artifacts/.
set -eu
target=ini
. "$(dirname "$0")/fuzz-common.sh"
toolkit="$root/platform/Toolkit"

"$cxx" $fuzz_flags \
    -I"$root/platform" \
    "$here/ini_fuzzer.cpp" "$toolkit/IniFile.cpp" "$toolkit/RegularFile.cpp" "$toolkit/AtomicFile.cpp" \
    "$toolkit/ILogger.cpp" "$toolkit/LogFileSink.cpp" "$toolkit/UTF8.cpp" "$toolkit/TString.cpp" \
    "$toolkit/smart_ptr.cpp" "$toolkit/smart_ptr_custom_action.cpp" \
    -o "$out/ini_fuzzer" -pthread

# The seed corpus stays as committed; new inputs go to the work corpus.
cd "$out"
exec "$out/ini_fuzzer" "$out/corpus" "$here/corpus/ini" \
    -dict="$here/ini.dict" -max_total_time="$seconds" -max_len="${MAX_LEN:-4096}" -timeout=1 \
    -jobs=1 -workers=1 -artifact_prefix="$out/artifacts/" -print_final_stats=1
