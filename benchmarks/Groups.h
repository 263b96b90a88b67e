#pragma once

/// The figures, in groups that need much the same around them. Each group has a process to itself,
/// so that none is measured beside what another has left behind. Each prints its rows.
namespace Tesk {

struct Extent
{
    int runs = 9;
    int pageChanges = 2000; ///< of the hour's browsing
};

/// Prints no row: saves the pages that the bare window shows.
void SavePages(const Extent &extent);
/// Prints no row: shows the window whose memory MeasureMemory() measures.
void ShowWindow(const Extent &extent);

void MeasureStart(const Extent &extent);
void MeasureMemory(const Extent &extent);
void MeasureBrowsing(const Extent &extent);
void MeasureSearches(const Extent &extent);
void MeasureLists(const Extent &extent);
void MeasureCart(const Extent &extent);
void MeasureGrowth(const Extent &extent);

} // namespace Tesk
