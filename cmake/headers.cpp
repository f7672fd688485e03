// Holds nothing: the headers that are precompiled with it are named in compiler.cmake.
