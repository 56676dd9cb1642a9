// The variables a new session has, with the values of a new drawing.
#include <sys/time.h>

#include <ctime>
#include <map>
#include <string>

#include "host/sysvars/table.h"

namespace lumo::host {

namespace {

SysVarDef Fixed(SysVarValue v, bool readOnly = false) {
    SysVarDef d;
    d.initial = std::move(v);
    d.readOnly = readOnly;
    return d;
}

SysVarDef Computed(SysVarValue type, std::function<SysVarValue()> get) {
    SysVarDef d = Fixed(std::move(type), true);
    d.get = std::move(get);
    return d;
}

void Now(std::tm& local, long& msec) {
    timeval tv{};
    gettimeofday(&tv, nullptr);
    time_t secs = tv.tv_sec;
    localtime_r(&secs, &local);
    msec = tv.tv_usec / 1000;
}

// CDATE is the calendar date and time as one real: YYYYMMDD.HHMMSSmmm.
SysVarValue CurrentCdate() {
    std::tm t{};
    long msec = 0;
    Now(t, msec);
    double day = (t.tm_year + 1900) * 10000.0 + (t.tm_mon + 1) * 100.0 + t.tm_mday;
    double clock = t.tm_hour * 1e-2 + t.tm_min * 1e-4 + t.tm_sec * 1e-6 + msec * 1e-9;
    return RealVar(day + clock);
}

// DATE is the Julian day number with the time of day as its fraction.
SysVarValue CurrentDate() {
    timeval tv{};
    gettimeofday(&tv, nullptr);
    double days = (tv.tv_sec + tv.tv_usec * 1e-6) / 86400.0;
    return RealVar(2440587.5 + days);
}

}  // namespace

std::map<std::string, SysVarEntry>& SysVarTable() {
    static std::map<std::string, SysVarEntry> table = [] {
        std::map<std::string, SysVarEntry> t;
        auto add = [&t](const char* name, SysVarDef def) {
            SysVarEntry e{std::move(def), {}};
            e.value = e.def.initial;
            t[name] = std::move(e);
        };
        add("ACADVER", Fixed(StringVar("15.0"), true));
        add("ACADPREFIX", Fixed(StringVar(""), true));
        add("PLATFORM", Fixed(StringVar("Linux"), true));
        add("CDATE", Computed(RealVar(0), CurrentCdate));
        add("DATE", Computed(RealVar(0), CurrentDate));
        add("CMDACTIVE", Fixed(ShortVar(0), true));
        add("CMDNAMES", Fixed(StringVar(""), true));
        add("CMDECHO", Fixed(ShortVar(1)));
        add("DWGPREFIX", Fixed(StringVar(""), true));
        add("DWGNAME", Fixed(StringVar("Drawing1.dwg"), true));
        add("DWGTITLED", Fixed(ShortVar(0), true));
        add("CLAYER", Fixed(StringVar("0")));
        add("CELTYPE", Fixed(StringVar("BYLAYER")));
        add("CECOLOR", Fixed(StringVar("BYLAYER")));
        add("TEXTSTYLE", Fixed(StringVar("Standard")));
        add("TEXTSIZE", Fixed(RealVar(2.5)));
        add("ELEVATION", Fixed(RealVar(0)));
        add("THICKNESS", Fixed(RealVar(0)));
        add("LTSCALE", Fixed(RealVar(1)));
        add("OSMODE", Fixed(ShortVar(0)));
        add("ORTHOMODE", Fixed(ShortVar(0)));
        add("SNAPMODE", Fixed(ShortVar(0)));
        add("GRIDMODE", Fixed(ShortVar(0)));
        add("PICKBOX", Fixed(ShortVar(3)));
        add("HIGHLIGHT", Fixed(ShortVar(1)));
        add("EXPERT", Fixed(ShortVar(0)));
        add("FILEDIA", Fixed(ShortVar(1)));
        add("CMDDIA", Fixed(ShortVar(1)));
        add("ATTDIA", Fixed(ShortVar(0)));
        add("ATTREQ", Fixed(ShortVar(1)));
        add("MENUECHO", Fixed(ShortVar(0)));
        add("ERRNO", Fixed(ShortVar(0)));
        add("LUNITS", Fixed(ShortVar(2)));
        add("LUPREC", Fixed(ShortVar(4)));
        add("AUNITS", Fixed(ShortVar(0)));
        add("AUPREC", Fixed(ShortVar(0)));
        add("ANGBASE", Fixed(RealVar(0)));
        add("ANGDIR", Fixed(ShortVar(0)));
        add("DIMZIN", Fixed(ShortVar(0)));
        add("UNITMODE", Fixed(ShortVar(0)));
        add("DIMSCALE", Fixed(RealVar(1)));
        add("INSUNITS", Fixed(ShortVar(0)));
        add("PDMODE", Fixed(ShortVar(0)));
        add("PDSIZE", Fixed(RealVar(0)));
        add("PLINEWID", Fixed(RealVar(0)));
        add("FILLETRAD", Fixed(RealVar(0)));
        add("UCSORG", Fixed(PointVar(0, 0, 0), true));
        add("UCSXDIR", Fixed(PointVar(1, 0, 0), true));
        add("UCSYDIR", Fixed(PointVar(0, 1, 0), true));
        add("UCSNAME", Fixed(StringVar(""), true));
        add("WORLDUCS", Fixed(ShortVar(1), true));
        add("VIEWDIR", Fixed(PointVar(0, 0, 1), true));
        add("VIEWCTR", Fixed(PointVar(0, 0, 0), true));
        add("VIEWSIZE", Fixed(RealVar(100), true));
        add("VIEWTWIST", Fixed(RealVar(0), true));
        add("SCREENSIZE", Fixed([] { SysVarValue v = PointVar(1024, 768, 0); v.type = RTPOINT; return v; }(), true));
        add("TILEMODE", Fixed(ShortVar(1)));
        add("CVPORT", Fixed(ShortVar(2)));
        add("LASTPOINT", Fixed(PointVar(0, 0, 0)));
        add("EXTMIN", Fixed(PointVar(1e20, 1e20, 1e20), true));
        add("EXTMAX", Fixed(PointVar(-1e20, -1e20, -1e20), true));
        add("LIMMIN", Fixed([] { SysVarValue v = PointVar(0, 0, 0); v.type = RTPOINT; return v; }()));
        add("LIMMAX", Fixed([] { SysVarValue v = PointVar(420, 297, 0); v.type = RTPOINT; return v; }()));
        add("LOGINNAME", Computed(StringVar(""), [] {
            const char* user = std::getenv("USER");
            return StringVar(user ? user : "user");
        }));
        return t;
    }();
    return table;
}

}  // namespace lumo::host
