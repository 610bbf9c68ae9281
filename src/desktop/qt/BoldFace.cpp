#include "desktop/qt/BoldFace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <QPainterPath>
#include <QRawFont>
#include <QtEndian>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H

#include "desktop/qt/BoldOutline.h"
#include "desktop/qt/TrueTypeFile.h"

namespace desktop::qt {

namespace {

// How much thicker strokes become, in parts of the em: upright ones twice as thick as those of a plain face,
// level ones by half, so that a letter of two storeys stays open.
constexpr double GrowthAcross = 0.09;
constexpr double GrowthUp = 0.04;

/// A sign with a letter inside another stroke has no room for more than this part of it.
constexpr FT_ULong DenseSign = '@';
constexpr double GrowthOfDenseSign = 0.5;

// A letter is made so much narrower or wider at most, to keep its distances to its neighbours.
constexpr double Narrowest = 0.94;
constexpr double Widest = 1.08;

/// The parts of a unit in which outlines are worked on.
constexpr double Parts = 64;

/// What a font is without its instructions and pictures, which are for the old outlines.
constexpr std::array<const char*, 15> KeptTables = {"GDEF", "GPOS", "GSUB", "OS/2", "cmap",
                                                    "gasp", "glyf", "head", "hhea", "hmtx",
                                                    "kern", "loca", "maxp", "name", "post"};

constexpr std::u32string_view Compared = U"HnoABCDEFGIJKLMNOPQRSTUVWXYZabcdefghijklmpqrstuvwxyz0123456789";

/// The Latin letters end here. What comes behind them becomes as wide as its strokes make it.
constexpr FT_ULong EndOfLatin = 0x250;

/// A range of characters, its end not among them.
struct Range {
    FT_ULong First;
    FT_ULong End;
};
/// The scripts of Europe with their accents, and the signs between their letters. Glyphs of other scripts,
/// half of such a font, stay as its maker left them: to make them bold costs as much as all these.
constexpr std::array<Range, 2> Thickened = {{{0x20, 0x590}, {0x2000, 0x2C00}}};

/// From this weight on a face says of itself that it is bold.
constexpr int BoldWeight = 600;

// Places in the tables.
namespace os2 {
constexpr qsizetype Weight = 4;
} // namespace os2
namespace head {
constexpr qsizetype Bounds = 36;
constexpr qsizetype LongLocations = 50;
} // namespace head
namespace hhea {
constexpr qsizetype Metrics = 34;
} // namespace hhea
namespace maxp {
constexpr qsizetype Points = 6;
constexpr qsizetype Contours = 8;
constexpr std::array<qsizetype, 10> OfPartsAndInstructions = {10, 12, 16, 18, 20, 22, 24, 26, 28, 30};
} // namespace maxp

/// A face in memory, in the units of its own design.
class Face {
  public:
    explicit Face(const QRawFont& font) {
        for (const char* tag : KeptTables) {
            tables_.Set(tag, font.fontTable(tag));
        }
        bytes_ = tables_.Bytes();
        if (tables_.Table("glyf").isEmpty() || FT_Init_FreeType(&library_) != 0 ||
            FT_New_Memory_Face(library_, reinterpret_cast<const FT_Byte*>(bytes_.constData()),
                               static_cast<FT_Long>(bytes_.size()), 0, &face_) != 0) {
            face_ = nullptr;
        }
    }
    ~Face() {
        if (library_ != nullptr) {
            FT_Done_FreeType(library_); // and its face
        }
    }
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    bool IsThere() const { return face_ != nullptr; }
    const TrueTypeFile& Tables() const { return tables_; }
    FT_Face Get() const { return face_; }

    /// The outline of a glyph, until the next one is asked for. Nothing if it cannot be read.
    FT_GlyphSlot Glyph(FT_UInt index) const {
        return FT_Load_Glyph(face_, index, FT_LOAD_NO_SCALE) == 0 ? face_->glyph : nullptr;
    }
    FT_GlyphSlot Letter(FT_ULong code) const {
        const FT_UInt index = FT_Get_Char_Index(face_, code);
        return index == 0 ? nullptr : Glyph(index);
    }

  private:
    TrueTypeFile tables_;
    QByteArray bytes_;
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

bool AreEqual(const FT_Outline& one, const FT_Outline& other) {
    return one.n_points == other.n_points && one.n_contours == other.n_contours &&
           std::equal(one.points, one.points + one.n_points, other.points,
                      [](const FT_Vector& a, const FT_Vector& b) { return a.x == b.x && a.y == b.y; });
}

bool HaveEqualOutlines(const Face& plain, const Face& bold) {
    int equal = 0;
    for (const char32_t code : Compared) {
        const FT_GlyphSlot one = plain.Letter(code);
        const FT_GlyphSlot other = bold.Letter(code);
        if (one == nullptr || other == nullptr) {
            continue;
        }
        if (!AreEqual(one->outline, other->outline)) {
            return false;
        }
        ++equal;
    }
    return equal > 0;
}

/// Rounded to whole units.
int Units(double value) {
    return static_cast<int>(std::lround(value));
}

class BoldMaker {
  public:
    BoldMaker(const Face& plain, const Face& bold)
        : bold_(bold), em_(bold.Get()->units_per_EM), tables_(bold.Tables()), metrics_(tables_.Table("hmtx")),
          wide_(ReadU16(tables_.Table("hhea"), hhea::Metrics)) {
        if (const FT_GlyphSlot capital = bold.Letter('H')) {
            height_ = std::max(em_ / 2, static_cast<double>(capital->metrics.height));
        }
        FindRooms(plain);
        FindThickened();
    }

    QByteArray Make() {
        QByteArray locations;
        outlines_.reserve(tables_.Table("glyf").size() * 4);
        for (int index = 0; index < bold_.Get()->num_glyphs; ++index) {
            AppendU32(locations, outlines_.size());
            const FT_GlyphSlot glyph = bold_.Glyph(static_cast<FT_UInt>(index));
            if (glyph == nullptr) {
                return {};
            }
            if (glyph->outline.n_contours > 0) {
                if (isThickened_[static_cast<std::size_t>(index)]) {
                    const int left = Thicken(glyph->outline, GrowthOf(index), RoomOf(index));
                    WriteU16(metrics_, index < wide_ ? index * 4 + 2 : wide_ * 4 + (index - wide_) * 2, left);
                }
                Append(glyph->outline);
            }
        }
        AppendU32(locations, outlines_.size());
        tables_.Set("loca", locations);
        tables_.Set("glyf", outlines_);
        tables_.Set("hmtx", metrics_);
        SetLimits();
        return tables_.Bytes();
    }

  private:
    /// By how much the bold face is wider, for each glyph that stands for a character.
    void FindRooms(const Face& plain) {
        for (FT_ULong code = ' '; code < EndOfLatin; ++code) {
            const FT_UInt index = FT_Get_Char_Index(bold_.Get(), code);
            const FT_UInt same = FT_Get_Char_Index(plain.Get(), code);
            FT_Fixed wide = 0;
            FT_Fixed narrow = 0;
            if (index != 0 && same != 0 && FT_Get_Advance(bold_.Get(), index, FT_LOAD_NO_SCALE, &wide) == 0 &&
                FT_Get_Advance(plain.Get(), same, FT_LOAD_NO_SCALE, &narrow) == 0) {
                rooms_[static_cast<int>(index)] = static_cast<double>(wide - narrow);
            }
        }
    }

    void FindThickened() {
        for (const Range& range : Thickened) {
            FT_UInt index = FT_Get_Char_Index(bold_.Get(), range.First);
            FT_ULong code = range.First;
            if (index == 0) {
                code = FT_Get_Next_Char(bold_.Get(), code, &index);
            }
            while (index != 0 && code < range.End) {
                isThickened_[index] = true;
                code = FT_Get_Next_Char(bold_.Get(), code, &index);
            }
        }
    }

    /// How much of the usual a glyph's strokes grow.
    double GrowthOf(int index) const { return index != 0 && index == dense_ ? GrowthOfDenseSign : 1; }

    double RoomOf(int index) const {
        const auto room = rooms_.find(index);
        return room == rooms_.end() ? GrowthAcross * em_ : room->second;
    }

    /// Makes an outline bold that may become wider by `room`, and tells where it begins. What its strokes
    /// take beyond that it takes from its width, and the rest from its distances on both sides.
    int Thicken(FT_Outline& outline, double part, double room) const {
        FT_BBox box;
        FT_Outline_Get_CBox(&outline, &box);
        const double across = part * GrowthAcross * em_;
        const double up = part * GrowthUp * em_;
        const double width = std::max(1.0, static_cast<double>(box.xMax - box.xMin));
        const double stretch = std::clamp((width + room - across) / width, Narrowest, Widest);
        const double left = static_cast<double>(box.xMin) - (width * stretch + across - width - room) / 2;
        for (FT_Vector& point : Points(outline)) {
            point.x = std::lround(static_cast<double>(point.x - box.xMin) * stretch * Parts);
            point.y = std::lround(static_cast<double>(point.y) * (1 - up / height_) * Parts);
        }
        // Grows to the right and upwards: a letter stays on its line and, shrunk before, as high as it was.
        Embolden(outline, std::lround(across * Parts), std::lround(up * Parts));
        for (FT_Vector& point : Points(outline)) {
            point.x = Units(static_cast<double>(point.x) / Parts + left);
            point.y = Units(static_cast<double>(point.y) / Parts);
        }
        FT_Outline_Get_CBox(&outline, &box);
        return static_cast<int>(box.xMin);
    }

    /// As a simple glyph with every step in 16 bits.
    void Append(const FT_Outline& outline) {
        FT_BBox box;
        FT_Outline_Get_CBox(&outline, &box);
        const std::array<FT_Pos, 4> corners = {box.xMin, box.yMin, box.xMax, box.yMax};
        // Twelve bytes for the counts and the corners, two for a contour, five for a point.
        const qsizetype start = outlines_.size();
        outlines_.resize(start + 12 + qsizetype{outline.n_contours} * 2 + qsizetype{outline.n_points} * 5);
        char* at = outlines_.data() + start;
        const auto put = [&at](FT_Pos value) {
            qToBigEndian(static_cast<quint16>(value), at);
            at += 2;
        };
        put(outline.n_contours);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            put(corners[i]);
            bounds_[i] = i < 2 ? std::min(bounds_[i], corners[i]) : std::max(bounds_[i], corners[i]);
        }
        for (int i = 0; i < outline.n_contours; ++i) {
            put(outline.contours[i]);
        }
        put(0); // instructions
        for (int i = 0; i < outline.n_points; ++i) {
            *at++ = static_cast<char>(outline.tags[i] & FT_CURVE_TAG_ON);
        }
        for (const auto coordinate : {&FT_Vector::x, &FT_Vector::y}) {
            FT_Pos before = 0;
            for (const FT_Vector& point : Points(outline)) {
                put(point.*coordinate - before);
                before = point.*coordinate;
            }
        }
        outlines_.resize((outlines_.size() + 3) / 4 * 4, '\0');
        points_ = std::max<int>(points_, outline.n_points);
        contours_ = std::max<int>(contours_, outline.n_contours);
    }

    void SetLimits() {
        QByteArray head = tables_.Table("head");
        for (std::size_t i = 0; i < bounds_.size(); ++i) {
            WriteU16(head, head::Bounds + static_cast<qsizetype>(i) * 2, static_cast<int>(bounds_[i]));
        }
        WriteU16(head, head::LongLocations, 1);
        tables_.Set("head", head);
        QByteArray limits = tables_.Table("maxp");
        WriteU16(limits, maxp::Points, points_);
        WriteU16(limits, maxp::Contours, contours_);
        for (const qsizetype at : maxp::OfPartsAndInstructions) {
            WriteU16(limits, at, 0);
        }
        tables_.Set("maxp", limits);
    }

    const Face& bold_;
    double em_;
    TrueTypeFile tables_;
    QByteArray metrics_;
    int wide_; ///< glyphs with an advance of their own
    int dense_ = static_cast<int>(FT_Get_Char_Index(bold_.Get(), DenseSign)); ///< 0 if there is none
    double height_ = em_;                                                     ///< of a capital
    std::unordered_map<int, double> rooms_;
    std::vector<bool> isThickened_ =
        std::vector<bool>(static_cast<std::size_t>(std::max<FT_Long>(bold_.Get()->num_glyphs, 0)));
    QByteArray outlines_;
    std::array<FT_Pos, 4> bounds_ = {};
    int points_ = 0;
    int contours_ = 0;
};

} // namespace

QByteArray MakeBold(const QRawFont& plain, const QRawFont& bold) {
    constexpr quint32 none = 0;
    const QList<quint32> thin = plain.glyphIndexesForString(QStringLiteral("H"));
    const QList<quint32> thick = bold.glyphIndexesForString(QStringLiteral("H"));
    // Nearly all faces end here, without their files being read.
    if (thin.value(0, none) != none && thick.value(0, none) != none &&
        plain.pathForGlyph(thin.front()) != bold.pathForGlyph(thick.front())) {
        return {};
    }
    // A family without a bold face has its plain one in both places.
    if (ReadU16(plain.fontTable("OS/2"), os2::Weight) >= BoldWeight ||
        ReadU16(bold.fontTable("OS/2"), os2::Weight) < BoldWeight) {
        return {};
    }
    const Face plainFace(plain);
    const Face boldFace(bold);
    if (!plainFace.IsThere() || !boldFace.IsThere() || !HaveEqualOutlines(plainFace, boldFace)) {
        return {};
    }
    return BoldMaker(plainFace, boldFace).Make();
}

} // namespace desktop::qt
