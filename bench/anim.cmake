kovra_add_bench(anim_bench anim_bench.cpp)
