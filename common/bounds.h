#pragma once

/// Every bound of the program on what comes from outside, each with its reason. All lie far above anything
/// that the lighting programs, VirtualDJ or Lumipad write, and low enough that the worst file within them is
/// answered in seconds and takes at most 300 MB; a file beyond one is damaged or hostile.

/// Bytes of an XML file (project, mapping, layout): a mapping takes some hundred kilobytes, a project fifty.
constexpr int maxXmlSize = 8 * 1024 * 1024;

/// Elements inside each other in an XML file, and brackets inside each other in its document type: a mapping
/// has two. The document tree takes a stack frame for each.
constexpr int maxXmlDepth = 100;

/// Attributes of one XML element: a project's cell has eleven. They are compared with each other.
constexpr int maxXmlAttributes = 256;

/// Elements, attributes, comments, references and other parts of an XML file: a mapping of 10,000 lines has
/// 30,000. The document tree takes up to a kilobyte for each.
constexpr int maxXmlParts = 250'000;

/// `project` elements of a project file: Lumipad writes one. The show of each is looked for.
constexpr int maxProjects = 4;

/// Bank names in a project, where a comma in a name makes two of it: there are eight banks. Every step of
/// undo may hold all of them.
constexpr int maxBankNames = 1000;

/// `mapper` elements of one mapping file: VirtualDJ writes one. Each becomes an entry to choose.
constexpr int maxMappersPerFile = 100;

/// Bytes that the scan of VirtualDJ's folder of mappings reads in sum, before the window is shown; files that
/// do not fit any more, in the order of their names, are not listed. A mapping takes some hundred kilobytes.
constexpr int maxMappersScan = 16 * 1024 * 1024;

/// What a file counts at least in that sum: opening it takes as long as reading this many bytes.
constexpr int minMapperScan = 4096;

/// What each element and attribute of a file that is parsed counts at least there: a line of a mapping has
/// three of them and from fifty to two hundred bytes.
constexpr int minMapperScanPart = 20;

/// Characters of an action in a mapping; a longer one reads as empty. Actions are lines of some dozen words,
/// and an exported mapping repeats and escapes them.
constexpr int maxActionLength = 65'536;

/// Bytes of a show's `live.ini`: 20,000 Live Buttons take 3 MB.
constexpr int maxLightShowSize = 8 * 1024 * 1024;

/// Lines of a show's `live.ini` that name a group or give a value: a Live Button has a dozen. Each takes some
/// 200 bytes while the file is read.
constexpr int maxLightShowLines = 500'000;

/// Live pages and Live Buttons of one show: real ones have a few pages and a few hundred Live Buttons. A
/// damaged file can claim millions of either.
constexpr int maxLivePages = 1000;
constexpr int maxLiveButtons = 50'000;

/// Values in all records of one show, and their characters in sum. Pages may share their groups of Live
/// Buttons, so a small file can ask for any number of copies.
constexpr int maxShowValues = 500'000;
constexpr int maxShowCharacters = 32 * 1024 * 1024;

/// Characters of a Live Button's title; what is behind them is cut off. VirtualDJ's names have some dozen.
constexpr int maxTitleLength = 100'000;

/// Characters of a name that are drawn. Text may be made such that drawing takes the square of its length.
constexpr int maxShownLength = 1000;

/// Bytes of either part of a dragged payload: one pad with the longest names of a project takes 16 MB.
constexpr int maxPayloadSize = 32 * 1024 * 1024;

/// Bytes of a file that is kept in memory while it is overwritten in place.
constexpr int maxKeptFile = 64 * 1024 * 1024;
