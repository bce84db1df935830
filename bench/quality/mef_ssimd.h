#pragma once

#include <QImage>

#include <vector>

/// Quality of an exposure fusion of a scene in which things moved, as proposed by Y. Fang, H. Zhu,
/// K. Ma, Z. Wang, S. Li, "Perceptual Evaluation for Multi-Exposure Image Fusion of Dynamic
/// Scenes", IEEE Transactions on Image Processing 29, 2020: the picture is divided into a static
/// and a dynamic region, each is measured by structural similarity, and both make one score.
///
/// Written from the published description; where that leaves a choice, this is ours: two shots
/// agree at a place when their patches, one mapped to the other's brightness by the histograms,
/// have means within a tenth of the range and correlate (ghostless noise aside) by .5 or more, as
/// in the consistency test of K. Ma and others, "Robust Multi-Exposure Image Fusion", TIP 26(5),
/// 2017. A place is static where all shots agree; its quality is MEF-SSIM of all of them. At a
/// dynamic place each shot in turn is the reference, MEF-SSIM is measured against the shots that
/// agree with it, and the best counts: any of the moments may be shown, but a single one. The score
/// of a scale is the mean of the two regions' means, or the one region's where there is only one.
namespace mefSsimd {

struct Score
{
    double quality = 0.0;
    double staticQuality = 0.0;  ///< of the finest scale
    double dynamicQuality = 0.0; ///< of the finest scale
    double dynamicShare = 0.0;   ///< of the places of the finest scale
};

/// shots: two or more, of the result's size, any format. 1 is the best.
Score scores(const std::vector<QImage> &shots, const QImage &result);
double score(const std::vector<QImage> &shots, const QImage &result);

} // namespace mefSsimd
