# Puts the files that come with the program into PROGRAM_FOLDER: that of the build, of an
# installation, or of the package. The language table, the pictures, the manuals and the web pages
# belong to the program and follow it. Settings and records only come along in their initial state,
# in the folder "initial"; the script there puts into place what is missing.
#
# INITIAL is the folder of what the build has made, SOURCE that of the project.

set(FILE OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(EXECUTABLE ${FILE} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)

# put(<folder below the program folder> <files and folders>...)
function(put folder)
  file(
    COPY ${ARGN}
    DESTINATION ${PROGRAM_FOLDER}/${folder}
    FILE_PERMISSIONS ${FILE}
    DIRECTORY_PERMISSIONS ${EXECUTABLE})
endfunction()

function(put_script folder)
  file(
    COPY ${ARGN}
    DESTINATION ${PROGRAM_FOLDER}/${folder}
    FILE_PERMISSIONS ${EXECUTABLE})
endfunction()

set(ASSETS ${SOURCE}/assets)
put(. ${INITIAL}/image ${INITIAL}/manual ${SOURCE}/docs/upssim.md)
put(database ${INITIAL}/LangData.mdb)
put_script(. ${ASSETS}/desktop/varek-desktop ${ASSETS}/desktop/try-varek)

put(initial ${ASSETS}/config.qmz ${ASSETS}/mailto.conf ${ASSETS}/SMSTO.conf ${ASSETS}/autosave.d)
put(initial/database ${INITIAL}/Event.mdb ${INITIAL}/data.mdb)
put_script(initial ${SOURCE}/packaging/add-missing)

# The charts are empty until the program draws them.
set(CHARTS bettery.bmp temperature.bmp chart.bmp)
file(GLOB WEB_PICTURES ${INITIAL}/web_pictures/*)
list(FILTER WEB_PICTURES EXCLUDE REGEX "\\.bmp$")
foreach(folder httpEnglish httpBig5 httpGB232)
  put(. ${INITIAL}/pages/${folder})
  put(${folder} ${WEB_PICTURES})
  foreach(chart ${CHARTS})
    if(NOT EXISTS ${PROGRAM_FOLDER}/${folder}/${chart})
      put(${folder} ${INITIAL}/web_pictures/${chart})
    endif()
  endforeach()
endforeach()
