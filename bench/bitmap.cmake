kovra_add_bench(bitmap_bench bitmap_bench.cpp)
# The text benchmark's baseline renders glyphs with FreeType directly.
target_link_libraries(bitmap_bench PRIVATE PkgConfig::FreeType PkgConfig::Fontconfig)
