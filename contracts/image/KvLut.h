// Output look-up tables: the colour in which each of 256 values is shown.
#pragma once

#include "contracts/basics/KvBuffers.h"
#include "contracts/basics/KvString.h"
#include "contracts/image/KvColor.h"

#include <array>
#include <memory>
#include <vector>

namespace KvN
{

class KvLut
{
public:
    using Colors = std::array<KvColor, 256>;

    KvLut(const KvString& name_, const Colors& colors_) : name(name_), colors(colors_) {}
    KvLut(const KvLut& other) : KvLut(other.name, other.colors) {}
    KvLut& operator=(const KvLut& other)
    {
        name = other.name;
        colors = other.colors;
        return *this;
    }
    virtual ~KvLut() = default;

    // Expires with the table.
    std::weak_ptr<const void> Life() const { return life; }
    const KvString& GetName() const { return name; }
    const Colors& GetColors() const { return colors; }
    // The entry nearest to a colour by the sum of squared differences, the lowest among equals.
    int NearestIndex(const KvColor& color) const;

private:
    KvString name;
    Colors colors;
    std::shared_ptr<const void> life = std::make_shared<char>();
};

// A table of the manager.
class KvOLut : public KvLut
{
public:
    using KvLut::KvLut;
};

// Second base of the AOI classes that show through a table. Starts with the table "Grey".
class KvOLutContainer
{
public:
    KvOLutContainer();
    virtual ~KvOLutContainer() = default;

    // Never null: "Grey" stands in for a table that has gone.
    virtual KvLut* GetOLut() const;
    // Selects a table of the manager; null leaves the table as it is.
    virtual void SetOLut(KvOLut* lut);
    // Takes over the table of another AOI; null likewise.
    virtual void TakeOLut(KvLut* lut);

private:
    KvLut* table; // not owned; the manager's tables last, a host's own may go
    std::weak_ptr<const void> life;
};

// Exactly six tables, in this order: "Grey", "GreyInverted", "DefectRegion", "Mask", "Rainbow", "Hot".
class KvOLutMgr
{
public:
    KvOLutMgr();

    // Null for an unknown name.
    KvOLut* GetLut(const KvString& name) const;
    unsigned short GetNumLuts() const { return static_cast<unsigned short>(tables.size()); }
    // Fills the list, which the caller has sized with `GetNumLuts`; a shorter one gets the first names.
    void GetAllLutNames(KvTMem<KvString>& names) const;

    // The one manager of the process.
    static KvOLutMgr& Instance();

private:
    std::vector<std::unique_ptr<KvOLut>> tables;
};

// The one manager; never null.
extern KvOLutMgr* const pOLutMgr;

} // namespace KvN
