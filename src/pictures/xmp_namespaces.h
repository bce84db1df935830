#pragma once

/// Namespaces of XMP (ISO 16684-1, and those of programs and phones) that this room touches.
namespace xmp {

constexpr char kBasic[] = "http://ns.adobe.com/xap/1.0/";
constexpr char kContainer[] = "http://ns.google.com/photos/1.0/container/";
constexpr char kContainerItem[] = "http://ns.google.com/photos/1.0/container/item/";
constexpr char kDublinCore[] = "http://purl.org/dc/elements/1.1/";
constexpr char kEvent[] = "http://ns.adobe.com/xap/1.0/sType/ResourceEvent#";
constexpr char kExif[] = "http://ns.adobe.com/exif/1.0/";
constexpr char kGainMap[] = "http://ns.adobe.com/hdr-gain-map/1.0/";
constexpr char kMediaManagement[] = "http://ns.adobe.com/xap/1.0/mm/";
constexpr char kNote[] = "http://ns.adobe.com/xmp/note/";
constexpr char kPanorama[] = "http://ns.google.com/photos/1.0/panorama/";
constexpr char kPhotoshop[] = "http://ns.adobe.com/photoshop/1.0/";
constexpr char kRights[] = "http://ns.adobe.com/xap/1.0/rights/";
constexpr char kTiff[] = "http://ns.adobe.com/tiff/1.0/";

} // namespace xmp
