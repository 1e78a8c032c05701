# What our own code is held to. Generated code (moc, uic, rcc) is compiled in the same targets and stays clean too.
function(vianda_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
endfunction()

# One switch for the whole tree: a sanitized object linked into an unsanitized program reports nothing useful.
if(VIANDA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
endif()

add_compile_definitions(
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_FOREACH
  QT_NO_URL_CAST_FROM_STRING
  QT_DEPRECATED_WARNINGS
  QT_STRICT_ITERATORS)
