# The same engine on the command line, without Qt. The C++ library goes into the program: a call for
# one file would otherwise spend most of its time on loading it.
find_package(CLI11 REQUIRED)
find_package(nlohmann_json 3.10 REQUIRED)
file(GLOB cli_sources CONFIGURE_DEPENDS app/cli/*.cpp)
list(REMOVE_ITEM cli_sources ${PROJECT_SOURCE_DIR}/app/cli/main.cpp)
add_library(plm_cli STATIC ${cli_sources})
target_link_libraries(plm_cli PUBLIC plm_logic
                      PRIVATE CLI11::CLI11 nlohmann_json::nlohmann_json plm_warnings)
target_compile_definitions(plm_cli PRIVATE PLM_VERSION="${PROJECT_VERSION}")
add_executable(pellmore-cli app/cli/main.cpp)
target_link_libraries(pellmore-cli PRIVATE plm_cli plm_warnings)
set_target_properties(plm_cli pellmore-cli PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
if(NOT PLM_SANITIZE)
    target_link_options(pellmore-cli PRIVATE -static-libstdc++ -static-libgcc)
endif()
