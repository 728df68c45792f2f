#!/bin/sh
# Runs one fuzzer for a while, from the seeds beside this script and what earlier runs have found.
#
#   run.sh SECONDS SEED CORPORA PROGRAM
#
# SEED is that of the random inputs, 0 for others each time.
#
# The log is CORPORA/PROGRAM.log; its last line is DONE when nothing was found. What was found lies
# beside it, to be replayed with PROGRAM FILE.
set -u
seconds=$1
seed=$2
corpora=$3
program=$4
name=$(basename "$program")
seeds=$(dirname "$0")/corpus/${name#fuzz_}
mkdir -p "$corpora/$name" "$seeds"
if "$program" -max_total_time="$seconds" -seed="$seed" -timeout=20 -rss_limit_mb=2048 \
    -artifact_prefix="$corpora/$name-" "$corpora/$name" "$seeds" >"$corpora/$name.log" 2>&1; then
    echo DONE >>"$corpora/$name.log"
    echo "$name: nothing found"
else
    echo "$name: FOUND SOMETHING, see $corpora/$name.log"
    exit 1
fi
