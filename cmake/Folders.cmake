# What each folder may include: itself and what it USES, nothing else. The order is that of the
# layers; a folder uses only folders named above it, so there are no circles. Targets of src/ are
# linked after this list, and tests/arrows checks every include against it.
set_property(GLOBAL PROPERTY FEROLIN_FOLDERS "")

# ferolin_folder(<folder> [USES <folder>...])
function(ferolin_folder folder)
  cmake_parse_arguments(PARSE_ARGV 1 FOLDER "" "" "USES")
  get_property(known GLOBAL PROPERTY FEROLIN_FOLDERS)
  foreach(used ${FOLDER_USES})
    if(NOT used IN_LIST known)
      message(FATAL_ERROR "${folder} uses ${used}, which is not declared above it")
    endif()
  endforeach()
  set_property(GLOBAL APPEND PROPERTY FEROLIN_FOLDERS ${folder})
  set_property(GLOBAL PROPERTY FEROLIN_USES_${folder} "${FOLDER_USES}")
endfunction()

ferolin_folder(platform/api)
ferolin_folder(include USES platform/api)

# The engine
ferolin_folder(src/base USES platform/api)
ferolin_folder(src/settings USES platform/api src/base)
ferolin_folder(src/track USES platform/api src/base)
ferolin_folder(src/gps USES platform/api src/base src/track)
ferolin_folder(src/sensors USES platform/api src/base src/gps)
ferolin_folder(src/sms USES platform/api src/base src/settings src/gps)
ferolin_folder(src/events USES platform/api src/base src/settings src/gps)
ferolin_folder(src/render USES platform/api src/base)
ferolin_folder(src/widgets USES platform/api include src/base src/settings src/sensors src/render)
set(VIEW_USES platform/api include src/base src/gps src/sensors src/render src/widgets)
ferolin_folder(src/widgets/dial USES ${VIEW_USES})
ferolin_folder(src/widgets/speed USES ${VIEW_USES})
ferolin_folder(src/widgets/satellites USES ${VIEW_USES})
ferolin_folder(src/widgets/path USES ${VIEW_USES} src/track)
ferolin_folder(src/widgets/chart USES ${VIEW_USES} src/track)
ferolin_folder(src/engine
  USES platform/api include src/base src/settings src/track src/gps src/sensors src/sms src/events
       src/render src/widgets src/widgets/dial src/widgets/speed src/widgets/satellites
       src/widgets/path src/widgets/chart)

# The application
ferolin_folder(app/engine USES platform/api include src/base)
ferolin_folder(app/text USES platform/api src/base)
ferolin_folder(app/drawing USES platform/api src/base)
ferolin_folder(app/receiver USES platform/api include src/base app/engine app/text)
ferolin_folder(app/pages
  USES platform/api include src/base app/engine app/text app/drawing app/receiver)
ferolin_folder(app/window
  USES platform/api include src/base app/engine app/text app/drawing app/receiver app/pages)
ferolin_folder(app USES platform/api app/window)

# The homes
ferolin_folder(platform/shared USES platform/api)
ferolin_folder(platform/device USES platform/api include)
ferolin_folder(platform/windows USES platform/api platform/shared)
ferolin_folder(platform/linux USES platform/api)  # handheld.h
set(FAMILY_USES platform/api platform/shared platform/linux platform/linux/core)
ferolin_folder(platform/linux/core USES platform/api platform/linux)
ferolin_folder(platform/linux/time USES ${FAMILY_USES})
ferolin_folder(platform/linux/text USES ${FAMILY_USES})
ferolin_folder(platform/linux/threads USES ${FAMILY_USES})
ferolin_folder(platform/linux/serial USES ${FAMILY_USES} platform/linux/time platform/linux/text)
ferolin_folder(platform/linux/files
  USES ${FAMILY_USES} platform/linux/time platform/linux/text platform/linux/serial)
ferolin_folder(platform/linux/modules USES ${FAMILY_USES} platform/linux/text platform/linux/files)
ferolin_folder(platform/linux/power USES ${FAMILY_USES} platform/linux/text platform/linux/files)
ferolin_folder(platform/linux/sound USES ${FAMILY_USES} platform/linux/text platform/linux/files)
ferolin_folder(platform/linux/windows USES ${FAMILY_USES} platform/linux/time platform/linux/text)
ferolin_folder(platform/linux/fine USES ${FAMILY_USES} platform/linux/windows)
ferolin_folder(platform/linux/gdi
  USES ${FAMILY_USES} platform/linux/text platform/linux/files platform/linux/windows
       platform/linux/fine)
ferolin_folder(platform/linux/imaging
  USES ${FAMILY_USES} platform/linux/files platform/linux/windows platform/linux/fine
       platform/linux/gdi)
ferolin_folder(platform/linux/display USES ${FAMILY_USES} platform/linux/windows)
ferolin_folder(platform/linux/hosting USES ${FAMILY_USES} include platform/linux/modules)

# The libraries beside the engine
ferolin_folder(siblings/common)
ferolin_folder(siblings/dastrel USES platform/api siblings/common)
ferolin_folder(siblings/handheld USES platform/api src/base)
ferolin_folder(siblings/parlex USES platform/api platform/linux siblings/common)

# The reference host
ferolin_folder(host/base)
ferolin_folder(host/commandline USES host/base)
ferolin_folder(host/sources
  USES platform/api platform/linux platform/linux/serial siblings/common host/base)
ferolin_folder(host/engine
  USES include platform/api platform/linux app/engine host/base host/sources)
ferolin_folder(host/drives USES host/base host/sources)
ferolin_folder(host/mqtt USES host/base host/drives)
ferolin_folder(host/window
  USES include platform/api platform/linux platform/linux/display app/receiver app/window host/base
       host/commandline host/engine)
ferolin_folder(host/outputs
  USES include platform/api platform/linux host/base host/sources host/engine host/window)
ferolin_folder(host/web
  USES include platform/api platform/linux host/base host/commandline host/sources host/engine
       host/drives host/window host/outputs)
ferolin_folder(host/run
  USES include platform/api platform/linux platform/linux/display app/engine host/base
       host/commandline host/engine host/sources host/drives host/mqtt host/window host/outputs
       host/web)
ferolin_folder(host USES host/base host/run)
