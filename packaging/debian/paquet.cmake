# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package, for CPack. The themes as the game reads them change with the lists that a class
# adds: they lie with the system's state, where the package makes them when it is configured.
set(state /var/lib/grimoval)
file(CREATE_LINK ${state}/MASK ${work}/MASK SYMBOLIC)
install(FILES ${work}/MASK DESTINATION ${data})

set(doc ${CMAKE_INSTALL_DATAROOTDIR}/doc/grimoval)
add_custom_command(
    OUTPUT ${work}/changelog.gz
    COMMAND gzip -9nc ${here}/debian/changelog > ${work}/changelog.gz
    DEPENDS ${here}/debian/changelog)
list(APPEND made ${work}/changelog.gz)
install(FILES ${work}/changelog.gz debian/copyright DESTINATION ${doc})
install(FILES debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides
        RENAME grimoval)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME grimoval)
set(CPACK_PACKAGE_VENDOR "Atelier Calvenor")
set(CPACK_PACKAGE_CONTACT "Atelier Calvenor <support@calvenor.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://www.calvenor.example/)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no library asks for: the font for young readers, the one of the printed report, the mixer, which the
# program loads by itself, its synthesizer, which since Debian 13 it only recommends, and the instruments of the tune.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "fonts-sil-andika, fonts-liberation, libsdl2-mixer-2.0-0, libfluidsynth3, timgm6mb-soundfont")
# Screen readers; windows under Wayland, which without it are those of X there; a reader for the
# catalogue; what opens it, and the site.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "at-spi2-core, qt6-wayland, xchm | kchmviewer | okular, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${here}/debian/postinst ${here}/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "jeu de lettres pour les enfants")
set(CPACK_PACKAGE_DESCRIPTION
    "Un mot est caché ; l'enfant propose des lettres ; à chaque erreur un rideau
descend sur l'image. De 6 à 11 ans, seul ou à deux, à la souris ou au clavier,
avec une voix et une musique.

Le jeu est là tout entier et ne se sert jamais du réseau. Les parents et les
enseignants peuvent y ajouter leurs propres listes de mots.")
include(CPack)
