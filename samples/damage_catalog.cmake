# Copies the data directory FROM to TO and cuts every table of it short in its first line.
file(REMOVE_RECURSE ${TO})
file(COPY ${FROM}/ DESTINATION ${TO})
file(GLOB tables RELATIVE ${TO} ${TO}/*.txt)
foreach(table IN LISTS tables)
  if(table MATCHES "^[0-9]+\\.txt$")
    file(WRITE ${TO}/${table} "0         CUT SH")
  endif()
endforeach()
