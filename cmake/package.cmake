# What is given to users: two folders, each in a tarball of its own. The tool writes beside itself,
# so nothing goes into the system's places; every user unpacks a folder.
#
#     cmake --install BUILD --prefix DIR --strip    # both folders, in DIR
#     (cd BUILD && cpack)                           # both tarballs, in BUILD/packages

set(ZORVAND_PACKAGE "zorvand-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
set(ZORVAND_VIEWER_PACKAGE "zorvand-viewer-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# zorvand_package_desktop(COMPONENT FOLDER PROGRAM ID): what both folders have for the desktop, and
# for whoever unpacks them. PROGRAM also names the icon.
function(zorvand_package_desktop component folder program id)
  set(source "${PROJECT_SOURCE_DIR}/packaging")
  install(FILES "${source}/${component}/READ-ME.txt" "${source}/runtime-packages.txt"
    DESTINATION "${folder}" COMPONENT ${component})
  install(PROGRAMS "${source}/install-for-me.sh" DESTINATION "${folder}" COMPONENT ${component})
  install(FILES "${source}/${component}/${id}.desktop"
    DESTINATION "${folder}/share/applications" COMPONENT ${component})
  install(FILES "${source}/${component}/${id}.metainfo.xml"
    DESTINATION "${folder}/share/metainfo" COMPONENT ${component})
  set(icons "${folder}/share/icons/hicolor")
  install(FILES "${source}/icons/${program}.svg" DESTINATION "${icons}/scalable/apps"
    COMPONENT ${component})
  foreach(side 16 22 24 32 48 64 128 256 512)
    install(FILES "${source}/icons/${side}x${side}/${program}.png"
      DESTINATION "${icons}/${side}x${side}/apps" COMPONENT ${component})
  endforeach()
endfunction()

install(TARGETS zorvand RUNTIME DESTINATION "${ZORVAND_PACKAGE}" COMPONENT zorvand)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Resources" DESTINATION "${ZORVAND_PACKAGE}"
  COMPONENT zorvand)
install(TARGETS viewer RUNTIME DESTINATION "${ZORVAND_PACKAGE}/Resources" COMPONENT zorvand)
zorvand_package_desktop(zorvand "${ZORVAND_PACKAGE}" zorvand org.zorvand.Zorvand)

# On a disc it is main.exe; on its own, it needs a name that says what it is.
install(TARGETS viewer RUNTIME DESTINATION "${ZORVAND_VIEWER_PACKAGE}" COMPONENT viewer)
install(CODE "set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${ZORVAND_VIEWER_PACKAGE}\")
file(RENAME \"\${folder}/$<TARGET_FILE_NAME:viewer>\" \"\${folder}/zorvand-viewer\")"
  COMPONENT viewer)
zorvand_package_desktop(viewer "${ZORVAND_VIEWER_PACKAGE}" zorvand-viewer org.zorvand.Viewer)

set(CPACK_GENERATOR TGZ)
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGE_FILE_NAME "${ZORVAND_PACKAGE}")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL zorvand viewer)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_ZORVAND_FILE_NAME "${ZORVAND_PACKAGE}")
set(CPACK_ARCHIVE_VIEWER_FILE_NAME "${ZORVAND_VIEWER_PACKAGE}")
# The folders bring their own names.
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
include(CPack)

# Other builds hold programs that nobody is given.
if(BUILD_TESTING AND NOT ZORVAND_SANITIZE AND NOT ZORVAND_COVERAGE)
  add_test(NAME package COMMAND "${PROJECT_SOURCE_DIR}/tools/package_test.sh" --built
    "${PROJECT_BINARY_DIR}")
  set_tests_properties(package PROPERTIES TIMEOUT 300)
endif()
