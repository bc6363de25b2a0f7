# The toolkit's code generator for classes with signals.

get_target_property(MOC Qt6::moc LOCATION)
configure_file(${CMAKE_CURRENT_LIST_DIR}/moc.sh.in ${PROJECT_BINARY_DIR}/moc.sh
               FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE @ONLY)

# use_moc(TARGET): for a target some of whose classes have signals, slots or properties. Nothing that
# the generator reads is built before, so it need not wait for the libraries of the target.
function(use_moc target)
  set_target_properties(${target} PROPERTIES
      AUTOMOC ON AUTOMOC_EXECUTABLE ${PROJECT_BINARY_DIR}/moc.sh AUTOMOC_COMPILER_PREDEFINES OFF
      AUTOGEN_ORIGIN_DEPENDS OFF)
endfunction()
