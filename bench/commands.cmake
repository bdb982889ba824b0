# The stress program shares the random walk of the command tests.
kovra_add_bench(commands_stress commands_stress.cpp
    ${PROJECT_SOURCE_DIR}/tests/commands/random_walk.cpp)
target_include_directories(commands_stress PRIVATE ${PROJECT_SOURCE_DIR}/tests/commands)
