kovra_add_bench(textures_bench textures_bench.cpp)
# stb_rect_pack (Debian libstb-dev) is the peer the packer is measured against; the benchmark only.
target_include_directories(textures_bench SYSTEM PRIVATE /usr/include/stb)
