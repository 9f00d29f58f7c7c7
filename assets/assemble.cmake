# Puts the files that come with the program into the program folder. The language table, the
# pictures, the manuals and the web pages belong to the program and follow it; settings and records
# belong to the user and are only ever added.
file(MAKE_DIRECTORY ${PROGRAM_FOLDER}/database)
file(COPY ${INITIAL}/LangData.mdb DESTINATION ${PROGRAM_FOLDER}/database)
file(COPY ${INITIAL}/image DESTINATION ${PROGRAM_FOLDER})
file(COPY ${INITIAL}/manual DESTINATION ${PROGRAM_FOLDER})

function(copy_if_missing source target)
  if(NOT EXISTS ${target})
    get_filename_component(folder ${target} DIRECTORY)
    file(COPY ${source} DESTINATION ${folder})
  endif()
endfunction()

copy_if_missing(${INITIAL}/Event.mdb ${PROGRAM_FOLDER}/database/Event.mdb)
copy_if_missing(${INITIAL}/data.mdb ${PROGRAM_FOLDER}/database/data.mdb)
copy_if_missing(${ASSETS}/config.qmz ${PROGRAM_FOLDER}/config.qmz)
file(CHMOD ${PROGRAM_FOLDER}/config.qmz PERMISSIONS OWNER_READ OWNER_WRITE)

# The charts are empty until the program draws them.
foreach(folder httpEnglish httpBig5 httpGB232)
  file(COPY ${INITIAL}/pages/${folder} DESTINATION ${PROGRAM_FOLDER})
  file(COPY ${INITIAL}/web_pictures/ DESTINATION ${PROGRAM_FOLDER}/${folder} PATTERN *.bmp EXCLUDE)
  foreach(chart bettery.bmp temperature.bmp chart.bmp)
    copy_if_missing(${INITIAL}/web_pictures/${chart} ${PROGRAM_FOLDER}/${folder}/${chart})
  endforeach()
endforeach()
