# SPDX-License-Identifier: MIT
# To be sourced: where the JDK is that builds and runs, and how many jobs a build takes.
if [ -z "${JAVA_HOME:-}" ] || [ ! -e "$JAVA_HOME/include/jni.h" ]; then
  JAVA_HOME=$(readlink -f "/usr/lib/jvm/java-17-openjdk-$(dpkg --print-architecture)")
fi
export JAVA_HOME
jobs=$(nproc)
