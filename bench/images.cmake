kovra_add_bench(images_bench images_bench.cpp)
