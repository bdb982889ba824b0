kovra_add_bench(doc_bench doc_bench.cpp)
