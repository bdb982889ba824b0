kovra_add_bench(chain_bench chain_bench.cpp)
