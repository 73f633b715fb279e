# Copies the delivered Lantern.mdb and dovrin.ini from FROM to TO, each only
# when TO has no such file yet.
foreach(name Lantern.mdb dovrin.ini)
  if(NOT EXISTS "${TO}/${name}")
    file(COPY "${FROM}/${name}" DESTINATION "${TO}")
  endif()
endforeach()
