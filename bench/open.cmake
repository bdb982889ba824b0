# Opening a large document in the editor's state; the file workflow lives in the editor library.
if(KOVRA_GUI)
    kovra_add_bench(open_bench open_bench.cpp)
    target_link_libraries(open_bench PRIVATE kovra_gui)
endif()
