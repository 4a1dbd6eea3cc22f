# The outside libraries of the view, the controls, the windows and the DOM
# helper, found once and given target names. The build includes this file,
# and so does the installed package, so that the exported targets find the
# same names in a client. Each is optional: a library whose dependency is
# missing is not built, and a client that links only the headless targets
# needs none of them.
include_guard(GLOBAL)

find_package(LibXml2 QUIET)

set(OpenGL_GL_PREFERENCE GLVND)
find_package(OpenGL QUIET COMPONENTS OpenGL EGL)
find_package(Fontconfig QUIET)
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND AND NOT TARGET PkgConfig::FTGL)
  pkg_check_modules(FTGL QUIET IMPORTED_TARGET GLOBAL ftgl)
endif()
set(QOR_HAVE_GL OFF)
if(TARGET OpenGL::OpenGL AND TARGET OpenGL::EGL AND TARGET OpenGL::GLU AND TARGET PkgConfig::FTGL
   AND TARGET Fontconfig::Fontconfig)
  set(QOR_HAVE_GL ON)
endif()

# wxWidgets' find module of this CMake gives variables, not a target.
if(NOT TARGET QorDeps::wx)
  find_package(wxWidgets QUIET COMPONENTS gl core base)
  if(wxWidgets_FOUND)
    add_library(QorDeps::wx INTERFACE IMPORTED GLOBAL)
    set(qor_wx_definitions ${wxWidgets_DEFINITIONS})
    if(wxWidgets_DEFINITIONS_DEBUG)
      list(APPEND qor_wx_definitions $<$<CONFIG:Debug>:${wxWidgets_DEFINITIONS_DEBUG}>)
    endif()
    set_target_properties(QorDeps::wx PROPERTIES
      INTERFACE_INCLUDE_DIRECTORIES "${wxWidgets_INCLUDE_DIRS}"
      INTERFACE_COMPILE_DEFINITIONS "${qor_wx_definitions}"
      INTERFACE_COMPILE_OPTIONS "${wxWidgets_CXX_FLAGS}"
      INTERFACE_LINK_LIBRARIES "${wxWidgets_LIBRARIES}")
  endif()
endif()
set(QOR_HAVE_WX OFF)
if(TARGET QorDeps::wx)
  set(QOR_HAVE_WX ON)
endif()
