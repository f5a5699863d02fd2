# shellcheck shell=bash
# What run and test share. Sourced, with the root of the project as the current directory.

say() { printf '== %s\n' "$*"; }

# Configures and builds a preset, with the compiler cache where there is one.
build() {
    local preset="$1" launcher=""
    command -v ccache >/dev/null && launcher=ccache
    export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
    say "Configuring ($preset)"
    cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" </dev/null
    say "Building ($preset)"
    cmake --build --preset "$preset" --parallel "$(nproc)" </dev/null
}
