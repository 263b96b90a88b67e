#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The measures of the version 2 file format. All sizes and offsets are in bytes.
namespace Sqlite2::Format {

inline constexpr std::size_t pageSize = 1024;

/// Page 1 begins with this text and a NUL, which every version 2 file bears.
inline constexpr std::string_view headerText{"** This file contains an SQLite 2.1 database **\0",
                                             48};
inline constexpr std::size_t byteOrderMarkOffset = 48;
inline constexpr std::uint32_t byteOrderMark = 0xdae37528;
inline constexpr std::size_t firstFreePageOffset = 52;
inline constexpr std::size_t freePageCountOffset = 56;
inline constexpr std::size_t schemaVersionOffset = 60;
inline constexpr std::size_t fileFormatOffset = 64;
inline constexpr std::uint32_t newestFileFormat = 4;

inline constexpr std::uint32_t headerPage = 1;
inline constexpr std::uint32_t masterRootPage = 2;

/// A b-tree page: right-most child (32 bits), first cell and first free block (16 bits each).
inline constexpr std::size_t rightChildOffset = 0;
inline constexpr std::size_t firstCellOffset = 4;
inline constexpr std::size_t firstFreeBlockOffset = 6;
inline constexpr std::size_t pageHeaderSize = 8;

/// A cell: left child (32), key size (low 16), next cell (16), key size (high 8), data size (high
/// 8), data size (low 16), then the payload: key and data.
inline constexpr std::size_t cellLeftChild = 0;
inline constexpr std::size_t cellKeySizeLow = 4;
inline constexpr std::size_t cellNext = 6;
inline constexpr std::size_t cellKeySizeHigh = 8;
inline constexpr std::size_t cellDataSizeHigh = 9;
inline constexpr std::size_t cellDataSizeLow = 10;
inline constexpr std::size_t cellHeaderSize = 12;

/// A free block of a b-tree page: its size and the next block (16 bits each).
inline constexpr std::size_t freeBlockSize = 0;
inline constexpr std::size_t freeBlockNext = 2;

/// What a cell holds itself of its payload; the number of an overflow page stands behind it.
inline constexpr std::size_t maxLocalPayload = 236;
inline constexpr std::size_t pageNumberSize = 4;
inline constexpr std::size_t overflowPayload = pageSize - pageNumberSize;
/// An overflow page: the next one (32 bits, 0 for the last), then payload.
inline constexpr std::size_t nextOverflowPage = 0;

/// A page of the list of free pages: the next one, the number of pages that it lists, and these (32
/// bits each).
inline constexpr std::size_t freeListNext = 0;
inline constexpr std::size_t freeListCount = 4;
inline constexpr std::size_t freeListPages = 8;

/// Cells and free blocks start at multiples of this and take a multiple of it.
inline constexpr std::size_t alignment = 4;

/// Key size and data size are numbers of 24 bits.
inline constexpr std::size_t maxKeySize = 0xffffff;
inline constexpr std::size_t maxDataSize = 0xffffff;

inline constexpr std::size_t rowKeySize = 4;

} // namespace Sqlite2::Format
