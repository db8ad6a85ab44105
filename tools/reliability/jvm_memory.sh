#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What a Java runtime says of itself, in one line: global JNI handles, weak ones, the memory that it
# has committed for itself beside the Java heap, and what of that is the compilers' (KiB).
#   jvm_memory.sh PID     the process needs -XX:NativeMemoryTracking=summary
set -euo pipefail
unset JAVA_TOOL_OPTIONS  # is meant for the process that is asked
jcmd=${JAVA_HOME:?}/bin/jcmd
handles=$("$jcmd" "$1" Thread.print | grep '^JNI global refs:')
memory=$("$jcmd" "$1" VM.native_memory summary scale=KB)
committed() { sed -nE "s/^-? *$1.*committed=([0-9]+)KB.*/\\1/p" <<<"$memory"; }
total=$(committed 'Total:')
heap=$(committed 'Java Heap \(')
compilers=$(($(committed 'Compiler \(') + $(committed 'Arena Chunk \(')))
sed -E "s/[^0-9]*([0-9]+), weak refs: ([0-9]+)/\1,\2,$((total - heap)),$compilers/" <<<"$handles"
