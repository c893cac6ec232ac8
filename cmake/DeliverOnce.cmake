# cmake -DFROM=file -DTO=file -P DeliverOnce.cmake: copies a file unless its target exists, whatever
# the target holds. The target appears whole or not at all.
if(EXISTS "${TO}" OR IS_SYMLINK "${TO}")
    return()
endif()
get_filename_component(folder "${TO}" DIRECTORY)
file(MAKE_DIRECTORY "${folder}")
file(COPY_FILE "${FROM}" "${TO}.parcial")
file(RENAME "${TO}.parcial" "${TO}" NO_REPLACE RESULT ignored)
file(REMOVE "${TO}.parcial")
message(STATUS "Delivered ${TO}")
