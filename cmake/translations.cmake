# The translations become resources of the program. "toolkit" holds the texts of the toolkit itself
# that the user sees; the system's packages have none of them in every language.
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
file(GLOB translation_sources CONFIGURE_DEPENDS app/shared/translations/*.ts)
qt_add_translation(translation_files ${translation_sources} OPTIONS -silent)
set(translation_entries "")
foreach(file ${translation_files})
    get_filename_component(name ${file} NAME)
    string(APPEND translation_entries "<file alias=\"${name}\">${file}</file>")
endforeach()
set(translations ${PROJECT_BINARY_DIR}/translations.qrc)
file(CONFIGURE OUTPUT ${translations} CONTENT
     "<RCC><qresource prefix=\"/translations\">${translation_entries}</qresource></RCC>\n" @ONLY)
