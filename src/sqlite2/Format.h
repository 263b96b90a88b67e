#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The measures of the version 2 file format. All sizes and offsets are in bytes.
namespace Sqlite2::Format {

inline constexpr std::size_t PageSize = 1024;

/// Page 1 begins with this text and a NUL, which every version 2 file bears.
inline constexpr std::string_view HeaderText{"** This file contains an SQLite 2.1 database **\0",
                                             48};
inline constexpr std::size_t ByteOrderMarkOffset = 48;
inline constexpr std::uint32_t ByteOrderMark = 0xdae37528;
inline constexpr std::size_t FirstFreePageOffset = 52;
inline constexpr std::size_t FreePageCountOffset = 56;
inline constexpr std::size_t SchemaVersionOffset = 60;
inline constexpr std::size_t FileFormatOffset = 64;
inline constexpr std::uint32_t NewestFileFormat = 4;

inline constexpr std::uint32_t HeaderPage = 1;
inline constexpr std::uint32_t MasterRootPage = 2;

/// A b-tree page: right-most child (32 bits), first cell and first free block (16 bits each).
inline constexpr std::size_t RightChildOffset = 0;
inline constexpr std::size_t FirstCellOffset = 4;
inline constexpr std::size_t FirstFreeBlockOffset = 6;
inline constexpr std::size_t PageHeaderSize = 8;

/// A cell: left child (32), key size (low 16), next cell (16), key size (high 8), data size (high
/// 8), data size (low 16), then the payload: key and data.
inline constexpr std::size_t CellLeftChild = 0;
inline constexpr std::size_t CellKeySizeLow = 4;
inline constexpr std::size_t CellNext = 6;
inline constexpr std::size_t CellKeySizeHigh = 8;
inline constexpr std::size_t CellDataSizeHigh = 9;
inline constexpr std::size_t CellDataSizeLow = 10;
inline constexpr std::size_t CellHeaderSize = 12;

/// A free block of a b-tree page: its size and the next block (16 bits each).
inline constexpr std::size_t FreeBlockSize = 0;
inline constexpr std::size_t FreeBlockNext = 2;

/// What a cell holds itself of its payload; the number of an overflow page stands behind it.
inline constexpr std::size_t MaxLocalPayload = 236;
inline constexpr std::size_t PageNumberSize = 4;
inline constexpr std::size_t OverflowPayload = PageSize - PageNumberSize;
/// An overflow page: the next one (32 bits, 0 for the last), then payload.
inline constexpr std::size_t NextOverflowPage = 0;

/// A page of the list of free pages: the next one, the number of pages that it lists, and these (32
/// bits each).
inline constexpr std::size_t FreeListNext = 0;
inline constexpr std::size_t FreeListCount = 4;
inline constexpr std::size_t FreeListPages = 8;

/// Cells and free blocks start at multiples of this and take a multiple of it.
inline constexpr std::size_t Alignment = 4;

/// Key size and data size are numbers of 24 bits.
inline constexpr std::size_t MaxKeySize = 0xffffff;
inline constexpr std::size_t MaxDataSize = 0xffffff;

inline constexpr std::size_t RowKeySize = 4;

} // namespace Sqlite2::Format
