// Loading and saving large DXF files.
//
// The drawing has a mix of what building plans hold: lines, arcs, polylines
// with bulges, texts, block references and hatches. Its size comes from
// LUMO_BENCH_ENTITIES (100000 by default). DxfLoad reads LUMO_BENCH_DXF when
// it is set, else a file it writes first; DxfWriteNew writes the generated
// drawing to LUMO_BENCH_OUT when that is set, so a script can make the file
// once and time loading it in a fresh process. Peak memory is the process's
// (getrusage), so run one benchmark per process to read it for that one.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <tuple>

#include "host/db/database_impl.h"
#include "host/db/session.h"
#include "platform/dbents.h"
#include "platform/dbhatch.h"
#include "platform/dbsymtb.h"

namespace {

using lumo::db::DxfVersion;

size_t EntityCount() {
    const char* n = std::getenv("LUMO_BENCH_ENTITIES");
    long v = n ? std::strtol(n, nullptr, 10) : 0;
    return v > 0 ? static_cast<size_t>(v) : 100000;
}

double PeakMiB() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return static_cast<double>(u.ru_maxrss) / 1024.0;
}

double FileMiB(const std::string& path) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return 0;
    std::fseek(f, 0, SEEK_END);
    double size = static_cast<double>(std::ftell(f));
    std::fclose(f);
    return size / (1024.0 * 1024.0);
}

AcDbObjectId AddLayer(AcDbDatabase& db, const char* name, int color) {
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForWrite);
    auto* rec = new AcDbLayerTableRecord;
    rec->setName(name);
    AcCmColor c;
    c.setColorIndex(static_cast<uint16_t>(color));
    rec->setColor(c);
    AcDbObjectId id;
    layers->add(id, rec);
    rec->close();
    layers->close();
    return id;
}

AcDbObjectId AddMarkBlock(AcDbDatabase& db) {
    AcDbBlockTable* blocks = nullptr;
    db.getBlockTable(blocks, AcDb::kForWrite);
    auto* rec = new AcDbBlockTableRecord;
    rec->setName("MARK");
    AcDbObjectId id;
    blocks->add(id, rec);
    for (AcDbEntity* e : {static_cast<AcDbEntity*>(new AcDbCircle(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 0.5)),
                          static_cast<AcDbEntity*>(new AcDbLine(AcGePoint3d(-1, 0, 0), AcGePoint3d(1, 0, 0))),
                          static_cast<AcDbEntity*>(new AcDbLine(AcGePoint3d(0, -1, 0), AcGePoint3d(0, 1, 0)))}) {
        rec->appendAcDbEntity(e);
        e->close();
    }
    rec->close();
    blocks->close();
    return id;
}

// One entity of the mix; i picks the kind (out of every 20: 6 lines, 4 arcs,
// 4 polylines, 3 texts, 2 inserts, 1 hatch).
AcDbEntity* MakeEntity(size_t i, std::mt19937& rng, AcDbObjectId block) {
    std::uniform_real_distribution<double> pos(0.0, 10000.0), len(0.5, 50.0), ang(0.0, 6.283185307179586);
    double x = pos(rng), y = pos(rng);
    switch (i % 20) {
    case 0: case 1: case 2: case 3: case 4: case 5:
        return new AcDbLine(AcGePoint3d(x, y, 0), AcGePoint3d(x + len(rng), y + len(rng), 0));
    case 6: case 7: case 8: case 9: {
        double a = ang(rng);
        return new AcDbArc(AcGePoint3d(x, y, 0), len(rng), a, a + 1.0 + ang(rng) / 3);
    }
    case 10: case 11: case 12: case 13: {
        auto* pl = new AcDbPolyline;
        unsigned n = 4 + static_cast<unsigned>(i % 3);
        for (unsigned k = 0; k < n; ++k)
            pl->addVertexAt(k, AcGePoint2d(x + len(rng), y + len(rng)), k % 2 ? 0.41421356 : 0.0);
        pl->setClosed(i % 2 == 0);
        return pl;
    }
    case 14: case 15: case 16:
        return new AcDbText(AcGePoint3d(x, y, 0), ("ROOM " + std::to_string(i)).c_str(), AcDbObjectId::kNull,
                            2.5, ang(rng));
    case 17: case 18: {
        auto* ref = new AcDbBlockReference(AcGePoint3d(x, y, 0), block);
        ref->setRotation(ang(rng));
        return ref;
    }
    default: {
        auto* h = new AcDbHatch;
        h->setPattern(AcDbHatch::kPreDefined, i % 40 == 19 ? "SOLID" : "ANSI31");
        AcGePoint2dArray pts;
        AcGeDoubleArray bulges;
        double w = len(rng), d = len(rng);
        for (auto [px, py, b] : {std::tuple{x, y, 0.0}, {x + w, y, 0.5}, {x + w, y + d, 0.0}, {x, y + d, 0.0}}) {
            pts.append(AcGePoint2d(px, py));
            bulges.append(b);
        }
        h->appendLoop(AcDbHatch::kExternal | AcDbHatch::kPolyline, pts, bulges);
        return h;
    }
    }
}

std::unique_ptr<AcDbDatabase> MakeDrawing(size_t count) {
    auto db = std::make_unique<AcDbDatabase>();
    AcDbObjectId layers[4] = {AddLayer(*db, "WALL", 1), AddLayer(*db, "DOOR", 2), AddLayer(*db, "TEXT", 3),
                              AddLayer(*db, "HATCH", 8)};
    AcDbObjectId block = AddMarkBlock(*db);
    AcDbBlockTable* blocks = nullptr;
    db->getBlockTable(blocks, AcDb::kForRead);
    AcDbBlockTableRecord* space = nullptr;
    blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite);
    blocks->close();
    std::mt19937 rng(42);
    for (size_t i = 0; i < count; ++i) {
        AcDbEntity* e = MakeEntity(i, rng, block);
        space->appendAcDbEntity(e);
        e->setLayer(layers[i % 4]);
        e->close();
    }
    space->close();
    return db;
}

std::string TempPath(const char* stem) {
    return std::string(P_tmpdir) + "/lumo_" + stem + "_" + std::to_string(getpid()) + ".dxf";
}

// The file DxfLoad reads: the one named, or one written for the purpose.
std::string InputFile(bool& temporary) {
    if (const char* given = std::getenv("LUMO_BENCH_DXF")) {
        temporary = false;
        return given;
    }
    temporary = true;
    std::string path = TempPath("load");
    std::string error;
    if (!lumo::db::SaveDatabase(*MakeDrawing(EntityCount()), path, error)) std::fprintf(stderr, "%s\n", error.c_str());
    return path;
}

void Counters(benchmark::State& state, double fileMiB, double baseMiB) {
    state.counters["file_MiB"] = fileMiB;
    state.counters["peak_MiB"] = PeakMiB();
    state.counters["peak_over_file"] = fileMiB > 0 ? (PeakMiB() - baseMiB) / fileMiB : 0;
    state.counters["MB_per_s"] = benchmark::Counter(fileMiB * 1.048576 * static_cast<double>(state.iterations()),
                                                    benchmark::Counter::kIsRate);
}

// Reading the file into a new database, as the host opens a drawing.
void DxfLoad(benchmark::State& state) {
    bool temporary = false;
    std::string path = InputFile(temporary);
    double base = PeakMiB();
    size_t entities = 0;
    for (auto _ : state) {
        auto db = std::make_unique<AcDbDatabase>(false);
        if (db->readDxfFile(path.c_str()) != Acad::eOk) {
            state.SkipWithError("file not read");
            break;
        }
        benchmark::DoNotOptimize(db.get());
        state.PauseTiming();
        entities = db->impl().entities.size();
        db.reset();
        state.ResumeTiming();
    }
    state.counters["entities"] = static_cast<double>(entities);
    Counters(state, FileMiB(path), base);
    if (temporary) std::remove(path.c_str());
}
BENCHMARK(DxfLoad)->Unit(benchmark::kMillisecond)->Iterations(1);

// Writing a loaded drawing again, through the temporary file and rename.
void DxfSave(benchmark::State& state) {
    bool temporary = false;
    std::string path = InputFile(temporary);
    std::string out = TempPath("save");
    std::string error;
    auto db = std::make_unique<AcDbDatabase>(false);
    if (db->readDxfFile(path.c_str()) != Acad::eOk) {
        state.SkipWithError("file not read");
        return;
    }
    double base = PeakMiB();
    for (auto _ : state) {
        if (!lumo::db::SaveDatabase(*db, out, error)) {
            state.SkipWithError(error.c_str());
            break;
        }
    }
    Counters(state, FileMiB(out), base);
    std::remove(out.c_str());
    if (temporary) std::remove(path.c_str());
}
BENCHMARK(DxfSave)->Unit(benchmark::kMillisecond)->Iterations(1);

// Building the drawing through the class library and writing it: this is
// how a script makes the file the others read.
void DxfWriteNew(benchmark::State& state) {
    auto db = MakeDrawing(EntityCount());
    const char* given = std::getenv("LUMO_BENCH_OUT");
    std::string out = given ? given : TempPath("new");
    std::string error;
    for (auto _ : state) {
        if (!lumo::db::SaveDatabase(*db, out, error)) {
            state.SkipWithError(error.c_str());
            break;
        }
    }
    state.counters["entities"] = static_cast<double>(EntityCount());
    Counters(state, FileMiB(out), 0);
    if (!given) std::remove(out.c_str());
}
BENCHMARK(DxfWriteNew)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
