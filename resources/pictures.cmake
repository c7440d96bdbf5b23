# SPDX-License-Identifier: GPL-3.0-or-later
# reelsmith_add_pictures(TARGET): puts the icons and the art into the program as ":/icons/…" and ":/art/…".
function(reelsmith_add_pictures target)
    set(pictures
        icons/apps.svg icons/arrow.svg icons/back.svg icons/chart.svg icons/chevron.svg icons/close.svg
        icons/closeBold.svg icons/convert.svg icons/converted.svg icons/copy.svg icons/download.svg
        icons/external.svg icons/files.svg icons/link.svg icons/mail.svg icons/muted.svg
        icons/pause.svg icons/pen.svg icons/photos.svg icons/play.svg icons/playMark.svg icons/save.svg
        icons/settings.svg icons/share.svg icons/shield.svg icons/sound.svg icons/spinner.svg
        icons/starDeselected.svg icons/starSelected.svg icons/trash.svg icons/turn.svg icons/warning.svg
        art/convert-hero.svg art/library-empty.svg
        application-icon/io.reelsmith.Reelsmith.svg)
    list(TRANSFORM pictures PREPEND "${PROJECT_SOURCE_DIR}/resources/")
    qt_add_resources(${target} pictures PREFIX / BASE "${PROJECT_SOURCE_DIR}/resources" FILES ${pictures})
endfunction()
