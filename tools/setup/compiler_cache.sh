# Sourced by what builds: where a compiler cache is installed, it is used.
if command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    # Without these it does not keep what uses a precompiled header.
    export CCACHE_SLOPPINESS=pch_defines,time_macros
fi
