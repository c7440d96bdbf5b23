// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick
import Reelsmith as App

/// Every colour, size and duration of the interface; no other file has one of its own.
QtObject {
    id: theme

    // What the desktop and the window ask for.
    readonly property bool isDark: App.Appearance.isDark
    readonly property bool hasHighContrast: App.Appearance.hasHighContrast
    readonly property bool isCompact: App.Appearance.isCompact
    readonly property bool isLargeText: App.Appearance.isLargeText
    readonly property bool isTall: App.Appearance.isTall
    readonly property bool showsRows: isCompact || isLargeText
    readonly property real columnWidth: App.Appearance.columnWidth
    readonly property real windowHeight: App.Appearance.windowHeight
    readonly property bool isTurned: App.Appearance.isTurned
    readonly property bool isWide: App.Appearance.windowWidth > columnWidth

    readonly property bool hasCardLines: isDark || hasHighContrast

    // Colours.
    readonly property color backdrop: isDark ? "#090B0B" : "#E9E5DF"
    readonly property color canvas: isDark ? "#111414" : "#F6F4F0"
    readonly property color surface: isDark ? "#1C2020" : "#FFFFFF"
    readonly property color field: isDark ? "#282D2D" : "#EFECE6"
    readonly property color segmentOn: isDark ? (hasHighContrast ? "#0B0D0D" : "#434A4A") : "#FFFFFF"
    readonly property color segmentTitle: hasHighContrast ? accent : isDark ? "#8ADEDB" : "#0B666C"
    readonly property color segmentNote: hasHighContrast ? ink : isDark ? "#D5D8D5" : "#5C5952"
    readonly property color ink: isDark ? "#F1F1EE" : "#1C1B18"
    readonly property color inkSoft: hasHighContrast ? ink : isDark ? "#B4B8B5" : "#5C5952"
    readonly property color inkFaint: hasHighContrast ? (isDark ? "#C6CAC7" : "#45423C") : isDark ? "#9CA19E" : "#6B675F"
    readonly property color line: hasHighContrast ? (isDark ? "#9CA19E" : "#6B675F") : isDark ? "#343A3A" : "#E2DED6"
    readonly property color cardLine: hasHighContrast ? line : isDark ? "#454C4B" : "#D3CFC8"
    readonly property color accent: hasHighContrast ? (isDark ? "#8ADEDB" : "#074D52") : isDark ? "#62CFCB" : "#0B666C"
    readonly property color accentPressed: hasHighContrast ? (isDark ? "#B5ECEA" : "#053A3E") : isDark ? "#8ADEDB" : "#074D52"
    readonly property color accentSoft: isDark ? "#17393A" : "#DBEDEC"
    readonly property color accentInk: isDark ? "#04292B" : "#FFFFFF"
    readonly property color danger: hasHighContrast ? (isDark ? "#FFB7B0" : "#8C1A14") : isDark ? "#FF8F85" : "#B3261E"
    readonly property color dangerSoft: isDark ? "#3B1F1D" : "#FBE7E4"
    readonly property color warn: hasHighContrast ? (isDark ? "#FFD08A" : "#6B3900") : isDark ? "#F2B968" : "#8A4B08"
    readonly property color steel: hasHighContrast ? (isDark ? "#B4D2F8" : "#1E4776") : isDark ? "#8DB8F0" : "#2D5F9A"
    readonly property color steelSoft: isDark ? "#25313F" : "#E2E9F1"
    readonly property color plum: hasHighContrast ? (isDark ? "#E6C6F3" : "#5E2C73") : isDark ? "#D3A1E8" : "#7A4191"
    readonly property color plumSoft: isDark ? "#382A40" : "#ECE4F0"
    readonly property color spark: isDark ? "#FF9A5C" : "#E8662A"
    readonly property color star: hasHighContrast ? (isDark ? "#FFC57A" : "#8A4700") : isDark ? "#FFB454" : "#C96A00"
    readonly property color hero: hasHighContrast ? heroDeep : isDark ? "#0D4A4D" : "#0B666C"
    readonly property color heroDeep: isDark ? "#0A3B3E" : "#085359"
    readonly property color heroText: isDark ? "#F1F1EE" : "#FFFFFF"
    readonly property color heroNote: hasHighContrast ? heroText : isDark ? "#B9DAD9" : "#D3EAE9"
    readonly property color heroTile: Qt.rgba(1, 1, 1, 0.16)
    readonly property color heroButton: isDark ? "#62CFCB" : "#FFFFFF"
    readonly property color heroArrow: isDark ? "#04292B" : "#0B666C"
    readonly property color dim: isDark ? Qt.rgba(0, 0, 0, 0.62) : Qt.rgba(0.055, 0.063, 0.059, 0.46)
    readonly property color menuDim: Qt.rgba(0, 0, 0, 0.4)
    readonly property color barFill: isDark ? Qt.rgba(0.11, 0.125, 0.125, 0.97) : Qt.rgba(1, 1, 1, 0.97)
    readonly property color pressedVeil: isDark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0.11, 0.106, 0.094, 0.08)
    readonly property color hoverVeil: isDark ? Qt.rgba(1, 1, 1, 0.04) : Qt.rgba(0.11, 0.106, 0.094, 0.04)
    readonly property color pictureInk: "#FFFFFF"
    readonly property color label: Qt.rgba(0, 0, 0, hasHighContrast ? 0.85 : 0.66)
    readonly property color videoGround: "#000000"
    readonly property color introText: hasHighContrast ? pictureInk : "#E6F0F0"
    readonly property color introScrimBegin: Qt.rgba(0.012, 0.078, 0.086, 0)
    readonly property color introScrimMiddle: Qt.rgba(0.012, 0.078, 0.086, hasHighContrast ? 0.9 : 0.7)
    readonly property color introScrimEnd: Qt.rgba(0.012, 0.078, 0.086, hasHighContrast ? 0.95 : 0.86)
    readonly property color pictureButton: "#FFFFFF"
    readonly property color pictureButtonInk: "#1C1B18"
    readonly property color pageMarkRest: Qt.rgba(1, 1, 1, hasHighContrast ? 0.8 : 0.5)
    readonly property color playerButton: Qt.rgba(0, 0, 0, 0.62)
    readonly property color playerScrim: Qt.rgba(0, 0, 0, hasHighContrast ? 0.85 : 0.68)
    readonly property color playerTrack: Qt.rgba(1, 1, 1, hasHighContrast ? 0.6 : 0.3)
    readonly property color playerNote: hasHighContrast ? pictureInk : Qt.rgba(1, 1, 1, 0.7)
    readonly property color scrimMiddle: Qt.rgba(0, 0, 0, hasHighContrast ? 0.85 : 0.66)
    readonly property color scrimEnd: Qt.rgba(0, 0, 0, hasHighContrast ? 0.9 : 0.74)

    // What the named colours of the platform are drawn as.
    readonly property color gray: hasHighContrast ? ink : isDark ? "#B9BDBA" : "#4F4C46"
    readonly property real tabTitleOpacity: hasHighContrast ? 1 : 0.85
    readonly property color hairline: hasHighContrast ? line : isDark ? Qt.rgba(0.667, 0.667, 0.667, 0.22) : Qt.rgba(0.667, 0.667, 0.667, 0.5)
    readonly property color tileShadow: "#808080"

    readonly property real disabledOpacity: 0.5
    readonly property real pushedAsideDarkness: 0.08

    // Lettering.
    readonly property TextStyle display: TextStyle { size: 48; line: 52; weight: 700; tracking: -1.5; largest: 1.2 }
    readonly property TextStyle title: TextStyle { size: 24; line: 30; weight: 700; tracking: -0.3; largest: 1.3 }
    readonly property TextStyle introTitle: TextStyle { size: 32; line: 38; weight: 700; tracking: -0.3; largest: 1.3 }
    readonly property TextStyle heading: TextStyle { size: 19; line: 24; weight: 600 }
    readonly property TextStyle barName: TextStyle { size: 18; line: 24; weight: 600; largest: 1.3 }
    readonly property TextStyle value: TextStyle { size: 17; line: 24; weight: 600 }
    readonly property TextStyle strong: TextStyle { size: 16; line: 22; weight: 600 }
    readonly property TextStyle stepTitle: TextStyle { size: 15; line: 20; weight: 600 }
    readonly property TextStyle rowTitle: TextStyle { size: 16; line: 22; weight: 500 }
    readonly property TextStyle body: TextStyle { size: 16; line: 22 }
    readonly property TextStyle message: TextStyle { size: 15; line: 21 }
    readonly property TextStyle note: TextStyle { size: 14; line: 20 }
    readonly property TextStyle sectionTitle: TextStyle { size: 13; line: 18; weight: 600 }
    readonly property TextStyle smallNote: TextStyle { size: 13; line: 18 }
    readonly property TextStyle tileName: TextStyle { size: 13; line: 17; weight: 500 }
    readonly property TextStyle tileNameOnPicture: TextStyle { size: 13; line: 17; weight: 600 }
    readonly property TextStyle tableHeader: TextStyle { size: 13; line: 18; weight: 600 }
    readonly property TextStyle caption: TextStyle { size: 12; line: 16; weight: 500 }
    readonly property TextStyle duration: TextStyle { size: 12; line: 16; weight: 600 }
    readonly property TextStyle tab: TextStyle { size: 11; line: 14; weight: 500; largest: 1.15 }
    readonly property TextStyle tabSelected: TextStyle { size: 11; line: 14; weight: 600; largest: 1.15 }
    readonly property int smallestTab: 10
    readonly property int smallestSegment: 12

    // Distances.
    readonly property int gap4: 4
    readonly property int gap8: 8
    readonly property int gap12: 12
    readonly property int gap16: 16
    readonly property int gap20: 20
    readonly property int gap24: 24
    readonly property int gap32: 32
    readonly property int gap48: 48
    readonly property int sideMargin: 20
    readonly property int cardGap: 12
    readonly property int rowGap: 8
    readonly property int groupGap: 28
    readonly property int cardPadding: 16
    readonly property int rowPadding: 11
    readonly property int sheetPadding: 20
    readonly property int centerCardPadding: 24
    readonly property int sheetMargin: 8
    readonly property int overlayMargin: 8
    readonly property int leastBody: 76
    readonly property int iconTextGap: 14
    readonly property int hair: 1

    // Sizes.
    readonly property int target: 44
    readonly property int barHeight: 56
    readonly property int tabBarHeight: 64
    readonly property int stripHeight: 40
    readonly property int tabPillWidth: 56
    readonly property int tabPillHeight: 30
    readonly property int backButton: 48
    readonly property int buttonInSheet: 56
    readonly property int buttonInCard: 52
    readonly property int buttonInAlert: 48
    readonly property int alertWidth: 296
    readonly property real narrowShare: 0.4
    readonly property int progressMargin: 36
    readonly property int progressPicture: 52
    readonly property int sheetPicture: 76
    readonly property int sheetPictureSmall: 64
    readonly property int warningHeight: 26
    readonly property int alertMargin: 32
    readonly property int menuWidth: 230
    readonly property int menuRow: 50
    readonly property int optionRow: 60
    readonly property int documentRow: Math.max(60, rowTitle.scaledLine + smallNote.scaledLine + gap16)
    readonly property int popoverWidth: 340
    readonly property int fieldHeight: 52
    readonly property int segmentsHeight: 64
    readonly property int segmentsInset: 4
    readonly property int progressHeight: 8
    readonly property int progressTip: 10
    readonly property int switchWidth: 52
    readonly property int switchHeight: 32
    readonly property int switchKnobSize: 26
    readonly property int closeSize: 32
    readonly property int rowHeight: 56
    readonly property int settingsRow: 60
    readonly property int aboutIcon: 52
    readonly property int feedbackIcon: 80
    readonly property real shareAbove: 0.355
    readonly property int closeMargin: 14
    readonly property int sourceCardHeight: 148
    readonly property int sourceRowHeight: 76
    readonly property real heroHeight: Math.max(144, Math.min(232, Math.round(0.305 * windowHeight)))
    readonly property int heroArtInset: 20
    readonly property int heroButtonSize: 48
    readonly property int icon: 24
    readonly property int smallIcon: 18
    readonly property int rowIcon: 20
    readonly property int heroIcon: 26
    readonly property int placeholderIcon: 28
    readonly property int iconTile: 44
    readonly property int rowIconTile: 36
    readonly property int sheetIconTile: 40
    readonly property int heroIconTile: 48
    readonly property int introScrimHeight: 412
    readonly property real introScrimRest: 0.44
    readonly property real introTextShare: 0.7
    readonly property int pageMark: 8
    readonly property int pageMarkLong: 24
    readonly property int scrimHeight: 84
    readonly property real scrimRest: 0.48
    readonly property int tileNameMargin: 10
    readonly property int tileNameGap: 6
    readonly property int tileInset: 4
    readonly property int listTop: 50
    readonly property int gridTop: 32
    readonly property int playButton: 64
    readonly property int playerButtonSize: 72
    readonly property int playerMark: 36
    readonly property int playerScrimEdge: 40
    readonly property int playerMargin: 10
    readonly property int playerBottom: 30
    readonly property int playerBottomLow: 8
    readonly property int seekTrack: 4
    readonly property int seekKnob: 16
    readonly property int seekStep: 5
    readonly property int starSize: 40
    readonly property int starTarget: 56
    readonly property int emptyArtWidth: 210
    readonly property int emptyArtHeight: 150
    readonly property int shortLine: 48
    readonly property real liftedScale: 1.04
    readonly property real pressedScale: 0.98
    readonly property int focusWidth: 2
    readonly property int focusDistance: 2

    // Corners.
    readonly property int segmentRadius: 12
    readonly property int fieldRadius: 14
    readonly property int tileRadius: 14
    readonly property int rowTileRadius: 12
    readonly property int heroTileRadius: 15
    readonly property int buttonRadius: 16
    readonly property int listPictureRadius: 16
    readonly property int gridRadius: 18
    readonly property int cardRadius: 20
    readonly property int heroRadius: 24
    readonly property int centerCardRadius: 24
    readonly property int sheetRadius: 28
    readonly property int labelRadius: 6
    readonly property int labelMargin: 6
    readonly property int labelPadding: 7

    // Shadows; in the dark a line stands for that of a card.
    readonly property ShadowStyle cardShadow: ShadowStyle {
        layers: "1,2,0.05/3,12,0.06"
        reach: 15
        blur: 12
        tint: theme.ink
    }
    readonly property ShadowStyle sheetShadow: ShadowStyle {
        layers: theme.isDark ? "12,40,0.6" : "12,40,0.28"
        reach: 52
        blur: 40
    }
    readonly property ShadowStyle tileHalo: ShadowStyle {
        layers: "0,12,0.7"
        reach: 12
        blur: 12
        tint: theme.tileShadow
    }
    readonly property ShadowStyle playShadow: ShadowStyle {
        layers: "0,10,1"
        reach: 10
        blur: 10
    }

    // Durations in milliseconds; 0 where the user wants nothing to move.
    readonly property real pace: App.Appearance.durationsScale
    readonly property int press: 90 * pace
    readonly property int fade: 220 * pace
    readonly property int sheetUp: 280 * pace
    readonly property int sheetDown: 200 * pace
    readonly property int push: 300 * pace
    readonly property int alert: 180 * pace
    readonly property int menu: 180 * pace
    readonly property int toolbar: 220 * pace
    readonly property int selectionSlide: 160 * pace
    readonly property int stars: 100 * pace
    readonly property int introTexts: 300 * pace
    readonly property int picture: 120 * pace
    readonly property int indeterminate: 1400 * pace
    readonly property int spin: 900 * pace
    readonly property int spinnerDelay: 300 * pace
    readonly property real alertScale: 0.94
    readonly property real menuScale: 0.92
    readonly property real pushedAside: 0.3
}
