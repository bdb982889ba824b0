# Qt's raster painter is the peer of the textured quads; the benchmark only, and only where Qt is built.
if(KOVRA_GUI)
    kovra_add_bench(quad_peer_bench quad_peer_bench.cpp)
    target_link_libraries(quad_peer_bench PRIVATE Qt6::Gui)
endif()
