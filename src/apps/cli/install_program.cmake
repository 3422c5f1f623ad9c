# The program with its man page and what completes its command line in three shells.
install(TARGETS keyscout_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(FILES ${PROJECT_SOURCE_DIR}/man/keyscout.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT program)

set(completions ${PROJECT_SOURCE_DIR}/completions)
install(FILES ${completions}/keyscout.bash RENAME keyscout
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
install(FILES ${completions}/keyscout.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT program)
# Debian's zsh looks for those of packages in one folder and for those of the site in another.
install(FILES ${completions}/keyscout.zsh RENAME _keyscout
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT program)
install(FILES ${completions}/keyscout.zsh RENAME _keyscout
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT program)
