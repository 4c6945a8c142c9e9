// DataSets: files that are none, files that are damaged, and files that SQLite reads well but that hold what
// the program never wrote.
#include <fcntl.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/text.h"
#include "hostile_kinds.h"
#include "support.h"

namespace quillon::campaign {

namespace {

constexpr std::size_t kPage = 4096;

int Compare(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

// What another program may do to a DataSet: everything that SQLite can be asked for.
void Execute(const std::string& path, const std::string& sql) {
    sqlite3* raw = nullptr;
    sqlite3_open(path.c_str(), &raw);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(raw, &sqlite3_close);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    sqlite3_create_collation(raw, "QLN", SQLITE_UTF8, nullptr, Compare);
    const std::string freely = "PRAGMA writable_schema = ON; PRAGMA ignore_check_constraints = ON;" + sql;
    char* error = nullptr;
    if (sqlite3_exec(raw, freely.c_str(), nullptr, nullptr, &error) == SQLITE_OK) return;
    const std::string text = error == nullptr ? "" : error;
    sqlite3_free(error);
    throw std::runtime_error(text + " in " + sql);
}

HostileKind Sql(const char* name, const char* sql) {
    return {name, [sql](const HostilePlace& place) { Execute(place.DataSet(), sql); }};
}
// The size of the campaign stands for each {} in the statements.
HostileKind SizedSql(const char* name, const char* sql) {
    return {name, [sql](const HostilePlace& place) {
                std::string sized = sql;
                for (std::size_t at = 0; (at = sized.find("{}", at)) != std::string::npos;)
                    sized.replace(at, 2, std::to_string(place.size));
                Execute(place.DataSet(), sized);
            }};
}
HostileKind Bytes(const char* name, void (*change)(std::string& bytes)) {
    return {name, [change](const HostilePlace& place) {
                std::string bytes = ReadFile(place.DataSet());
                change(bytes);
                WriteFile(place.DataSet(), bytes);
            }};
}
HostileKind Instead(const char* name, void (*make)(const std::string& path)) {
    return {name, [make](const HostilePlace& place) {
                unlink(place.DataSet().c_str());
                make(place.DataSet());
            }};
}
HostileKind Beside(const char* name, const char* ending, std::string (*bytes)(const std::string& dataSet)) {
    return {name, [=](const HostilePlace& place) {
                WriteFile(place.DataSet() + ending, bytes(ReadFile(place.DataSet())));
            }};
}

void Put(std::string& bytes, std::size_t at, const std::string& text) {
    bytes.replace(at, text.size(), text);
}
std::string JetHeader() {
    std::string header("\0\1\0\0Standard Jet DB\0\1\0\0\0", 24);
    return header + std::string(4096 - header.size(), '\x5A');
}
// A journal that SQLite would play back: its header says so, its pages are of another file.
std::string ForeignJournal(const std::string& dataSet) {
    std::string journal("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7\0\0\0\1\0\0\0\0\0\0\0\2\0\0\2\0\0\0\x10\0", 28);
    journal.resize(512, '\0');
    return journal + std::string("\0\0\0\2", 4) + dataSet.substr(kPage, kPage) + std::string(4, '\0');
}
void LeaveWal(const HostilePlace& place) {
    // Killed with its last unit in the log.
    const pid_t child = StartChild([&] {
        sqlite3* raw = nullptr;
        sqlite3_open(place.DataSet().c_str(), &raw);
        sqlite3_exec(raw,
                     "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;"
                     "INSERT INTO journal VALUES (1); INSERT INTO journal VALUES (2)",
                     nullptr, nullptr, nullptr);
        _exit(0);
        return 0;
    });
    WaitFor(child);
}

// clang-format off
const HostileKind kDataSets[] = {
    // Files that are none.
    Instead("no file", [](const std::string&) {}),
    Instead("an empty file", [](const std::string& path) { WriteFile(path, ""); }),
    Instead("one byte", [](const std::string& path) { WriteFile(path, "S"); }),
    Instead("the first 16 bytes", [](const std::string& path) { WriteFile(path, std::string("SQLite format 3\0", 16)); }),
    Instead("the first 100 bytes, zeroes", [](const std::string& path) { WriteFile(path, std::string("SQLite format 3\0", 16) + std::string(84, '\0')); }),
    Instead("zeroes", [](const std::string& path) { WriteFile(path, std::string(8 * kPage, '\0')); }),
    Instead("a zip", [](const std::string& path) { WriteFile(path, std::string("PK\3\4", 4) + std::string(kPage, 'z')); }),
    Instead("the header of a Jet file", [](const std::string& path) { WriteFile(path, JetHeader()); }),
    Instead("a text", [](const std::string& path) { WriteFile(path, "[TU]|1||Animalia|\r\n"); }),
    Instead("a folder", [](const std::string& path) { std::filesystem::create_directory(path); }),
    Instead("a pipe", [](const std::string& path) { mkfifo(path.c_str(), 0666); }),
    Instead("an empty device", [](const std::string& path) { std::filesystem::create_symlink("/dev/null", path); }),
    Instead("an endless device", [](const std::string& path) { std::filesystem::create_symlink("/dev/zero", path); }),
    Instead("a link to itself", [](const std::string& path) { std::filesystem::create_symlink(path, path); }),
    Instead("an empty database", [](const std::string& path) { Execute(path, "VACUUM"); }),
    Instead("another database", [](const std::string& path) { Execute(path, "CREATE TABLE songs (title); INSERT INTO songs VALUES ('x')"); }),
    Instead("the id of a DataSet and no table", [](const std::string& path) { Execute(path, "PRAGMA application_id = 1366060612; CREATE TABLE x (y)"); }),

    // Damage.
    Bytes("cut within the header", [](std::string& bytes) { bytes.resize(50); }),
    Bytes("cut within a page", [](std::string& bytes) { bytes.resize(bytes.size() - kPage / 2); }),
    Bytes("cut in half", [](std::string& bytes) { bytes.resize(bytes.size() / kPage / 2 * kPage); }),
    Bytes("bytes behind the end", [](std::string& bytes) { bytes.append(100, 'x'); }),
    Bytes("pages behind the end", [](std::string& bytes) { bytes.append(10 * kPage, 'x'); }),
    Bytes("twice the file", [](std::string& bytes) { bytes += bytes; }),
    Bytes("zeroes in each tenth page", [](std::string& bytes) { for (std::size_t at = 9 * kPage; at + kPage <= bytes.size(); at += 10 * kPage) Put(bytes, at, std::string(kPage, '\0')); }),
    Bytes("a first page without tables", [](std::string& bytes) { Put(bytes, 100, std::string(kPage - 100, '\0')); }),
    Bytes("two pages exchanged", [](std::string& bytes) { const std::string one = bytes.substr(10 * kPage, kPage), two = bytes.substr(20 * kPage, kPage); Put(bytes, 10 * kPage, two); Put(bytes, 20 * kPage, one); }),
    Bytes("pages that lead back", [](std::string& bytes) { for (std::size_t at = kPage; at + kPage <= bytes.size(); at += kPage) if (bytes[at] == 5) Put(bytes, at + 8, std::string("\0\0\0\2", 4)); }),
    Bytes("another size of a page", [](std::string& bytes) { Put(bytes, 16, std::string("\x02\x00", 2)); }),
    Bytes("a size of a page that is none", [](std::string& bytes) { Put(bytes, 16, std::string("\x00\x03", 2)); }),
    Bytes("a format of the future", [](std::string& bytes) { Put(bytes, 18, "\x09\x09"); }),
    Bytes("write-ahead mode without a log", [](std::string& bytes) { Put(bytes, 18, "\2\2"); }),
    Bytes("UTF-16 in the header", [](std::string& bytes) { Put(bytes, 56, std::string("\0\0\0\2", 4)); }),
    Bytes("an application id of another program", [](std::string& bytes) { Put(bytes, 68, "ABCD"); }),
    Bytes("a count of free pages out of range", [](std::string& bytes) { Put(bytes, 32, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF"); }),
    {"a log of write-ahead mode", LeaveWal},
    Beside("a log that is none", "-wal", [](const std::string&) { return std::string(5000, 'w'); }),
    Beside("a journal that is none", "-journal", [](const std::string&) { return std::string(5000, 'j'); }),
    Beside("an empty journal", "-journal", [](const std::string&) { return std::string(); }),
    Beside("a journal of another file", "-journal", ForeignJournal),

    // Tables and columns.
    Sql("no table of names", "DROP TABLE qb_taxonomic_units"),
    Sql("no table of vernaculars", "DROP TABLE qb_vernaculars"),
    Sql("no kingdoms", "DROP TABLE kingdoms"),
    Sql("no ranks", "DROP TABLE taxonomic_unit_types"),
    Sql("no db_control", "DROP TABLE db_control"),
    Sql("no stored queries", "DROP TABLE qln_queries"),
    Sql("no AutoNumbers", "DROP TABLE qln_autonumber"),
    Sql("no list of waiting indexes", "DROP TABLE qln_waiting_indexes"),
    Sql("indexes that wait and are none", "INSERT INTO qln_waiting_indexes VALUES ('x'), ('''; DROP TABLE journal; --'), ('qb_taxonomic_units.usage'), (x'00')"),
    Sql("a table more", "CREATE TABLE extra (a, b); INSERT INTO extra VALUES (1, 2)"),
    Sql("a column more", "ALTER TABLE qb_taxonomic_units ADD COLUMN extra TEXT"),
    Sql("a column less", "ALTER TABLE qb_vernaculars DROP COLUMN language"),
    Sql("a column with another name", "ALTER TABLE qb_taxonomic_units RENAME COLUMN uncertain_parent_ind TO u"),
    Sql("a table with hostile names", "CREATE TABLE \"a]b\"\"c'; DROP TABLE journal; --\" (\"x]y\"\"z\" TEXT, \"\" INT); CREATE TABLE \"%s {}\" (a)"),
    Sql("a table without a name", "CREATE TABLE \"\" (a)"),
    SizedSql("a table with many columns", "UPDATE sqlite_master SET sql = 'CREATE TABLE journal (qb_id' || (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < min(1900, {})) SELECT group_concat(', c' || i, '') FROM n) || ', PRIMARY KEY (qb_id)) WITHOUT ROWID' WHERE name = 'journal'"),
    SizedSql("many tables", "INSERT INTO sqlite_master SELECT 'table', 't' || i, 't' || i, 2, 'CREATE TABLE t' || i || ' (a)' FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) SELECT i FROM n)"),
    Sql("a schema that is no statement", "UPDATE sqlite_master SET sql = 'CREATE TABLE journal (' WHERE name = 'journal'"),
    Sql("two tables on one page", "UPDATE sqlite_master SET rootpage = (SELECT rootpage FROM sqlite_master WHERE name = 'journal') WHERE name = 'db_delta'"),
    Sql("a view instead of the names", "ALTER TABLE qb_taxonomic_units RENAME TO t; CREATE VIEW qb_taxonomic_units AS SELECT * FROM t"),
    Sql("a view of itself", "DROP TABLE qb_reviews; CREATE VIEW qb_reviews AS SELECT * FROM qb_reviews"),
    Sql("an endless view instead of the vernaculars", "DROP TABLE qb_vernaculars; CREATE VIEW qb_vernaculars AS WITH RECURSIVE n(qb_id) AS (SELECT 1 UNION ALL SELECT qb_id + 1 FROM n) SELECT qb_id, qb_id AS qb_vern_id FROM n"),
    Sql("a virtual table instead of the reviews", "DROP TABLE qb_reviews; INSERT INTO sqlite_master VALUES ('table', 'qb_reviews', 'qb_reviews', 0, 'CREATE VIRTUAL TABLE qb_reviews USING fts5(x)')"),
    Sql("triggers that delete", "CREATE TRIGGER t AFTER INSERT ON qb_taxonomic_units BEGIN DELETE FROM qb_taxonomic_units; END; CREATE TRIGGER u AFTER UPDATE ON qb_taxonomic_units BEGIN DELETE FROM qb_vernaculars; END"),
    Sql("triggers that call themselves", "CREATE TRIGGER t AFTER INSERT ON journal BEGIN INSERT INTO journal VALUES (new.qb_id + 1); END; PRAGMA recursive_triggers = ON"),
    Sql("generated columns", "CREATE TABLE x (a); UPDATE sqlite_master SET sql = replace(sql, 'PRIMARY KEY (\"qb_id\"', 'g AS (randomblob(100000000)), PRIMARY KEY (\"qb_id\"') WHERE name = 'journal'"),
    Sql("a default that runs", "UPDATE sqlite_master SET sql = replace(sql, '\"value\" TEXT(10)', '\"value\" TEXT(10) DEFAULT (hex(randomblob(1000000000)))') WHERE name = 'db_control'"),
    Sql("a check that runs", "UPDATE sqlite_master SET sql = replace(sql, 'BETWEEN -2147483648 AND 2147483647', '> length(randomblob(1000000000))') WHERE name = 'qb_taxonomic_units'"),
    Sql("an index over an expression", "CREATE INDEX evil ON qb_taxonomic_units (abs(tsn) + length(unit_name1))"),
    Sql("indexes that are missing", "DROP INDEX \"qb_taxonomic_units~name\"; DROP INDEX \"qb_vernaculars~taxon\""),
    Sql("an index of another collation", "DROP INDEX \"qb_taxonomic_units.usage\"; CREATE INDEX \"qb_taxonomic_units.usage\" ON qb_taxonomic_units (usage COLLATE NOCASE)"),

    // Values.
    Sql("no names", "DELETE FROM qb_taxonomic_units"),
    Sql("no rows", "DELETE FROM kingdoms; DELETE FROM taxonomic_unit_types; DELETE FROM db_control; DELETE FROM qb_taxonomic_units; DELETE FROM change_operations_lookup"),
    Sql("no version", "DELETE FROM db_control"),
    Sql("versions", "INSERT INTO db_control VALUES ('Version', '1.0'), ('Version', '99.0')"),
    Sql("a version that is none", "UPDATE db_control SET value = 'four'"),
    Sql("a version of blobs", "UPDATE db_control SET value = x'00FF00'"),
    Sql("a newer version", "UPDATE db_control SET value = '999999999999999999.0.0'"),
    Sql("a version with many points", "UPDATE db_control SET value = '....4.....'"),
    SizedSql("a version of megabytes", "UPDATE db_control SET value = CAST(zeroblob({} * 1000) AS TEXT)"),
    Sql("two kingdoms", "INSERT INTO kingdoms VALUES (3, 'Plantae')"),
    Sql("a kingdom that is none", "UPDATE kingdoms SET kingdom_name = 'Martians', kingdom_id = 200"),
    Sql("ranks of negative numbers", "UPDATE taxonomic_unit_types SET rank_id = -rank_id, direct_parent_rank_id = -1"),
    Sql("text in ids", "UPDATE qb_taxonomic_units SET parent_qb_id = 'abc', tsn = 'xyz', rank_id = 'genus' WHERE qb_id > 1"),
    Sql("blobs in names", "UPDATE qb_taxonomic_units SET unit_name1 = x'00FF10', usage = x'', initial_time_stamp = x'41'"),
    Sql("numbers in names", "UPDATE qb_taxonomic_units SET unit_name1 = 1.5e300, unit_name2 = 7, usage = -1"),
    Sql("fractions in ids", "UPDATE qb_taxonomic_units SET tsn = 1.5, parent_qb_id = 1e18, rank_id = 9e999, qb_taxon_author_id = -0.5"),
    Sql("ids out of range", "UPDATE qb_taxonomic_units SET qb_id = qb_id + 4294967296 WHERE qb_id > 1; UPDATE qb_taxonomic_units SET parent_qb_id = 4294967297 WHERE qb_id > 1"),
    Sql("negative ids", "UPDATE qb_taxonomic_units SET qb_id = -qb_id, parent_qb_id = -parent_qb_id"),
    Sql("ids at the limit", "UPDATE qb_taxonomic_units SET qb_id = 2147483647 WHERE qb_id = (SELECT max(qb_id) FROM qb_taxonomic_units)"),
    Sql("a counter at its end", "UPDATE qln_autonumber SET next = 2147483647"),
    Sql("a counter over its end", "UPDATE qln_autonumber SET next = 9223372036854775807"),
    Sql("a counter of negative numbers", "UPDATE qln_autonumber SET next = -5"),
    Sql("a counter of text", "UPDATE qln_autonumber SET next = 'one'"),
    Sql("a counter that is behind", "UPDATE qln_autonumber SET next = 1"),
    Sql("a counter of no table", "INSERT INTO qln_autonumber VALUES ('nothing', 1), ('', 2), (x'00', 3)"),
    Sql("Null everywhere", "UPDATE qb_taxonomic_units SET tsn = NULL, unit_name1 = NULL, usage = NULL, parent_qb_id = NULL, kingdom_id = NULL, rank_id = NULL, parent_tsn = NULL; UPDATE qb_vernaculars SET qb_id = NULL, vernacular_name = NULL"),
    Sql("bad UTF-8", "UPDATE qb_taxonomic_units SET unit_name1 = CAST(x'C328E28228FFC080' AS TEXT), unit_name2 = CAST(x'EDA080' AS TEXT)"),
    Sql("NUL bytes in texts", "UPDATE qb_taxonomic_units SET unit_name1 = CAST(x'410042' AS TEXT), unit_name2 = char(0)"),
    Sql("line ends and separators in texts", "UPDATE qb_taxonomic_units SET unit_name1 = 'A' || char(13, 10) || '[TU]|7|', unit_name2 = '|||'"),
    Sql("texts of an exporter's own tags", "UPDATE qb_vernaculars SET vernacular_name = '[TU]' || char(10) || '[PB-]', language = char(9)"),
    SizedSql("texts of megabytes", "UPDATE qb_taxonomic_units SET unit_name1 = printf('%.*c', {} * 1000, 'a') WHERE qb_id = (SELECT max(qb_id) FROM qb_taxonomic_units); UPDATE qb_comments SET comment_detail = printf('%.*c', {} * 1000, 'a')"),
    SizedSql("blobs of megabytes", "UPDATE qb_publications SET title = zeroblob({} * 1000), pub_comment = randomblob({} * 1000)"),
    Sql("dates out of range", "UPDATE qb_publications SET listed_pub_date = '99/99/9999', actual_pub_date = 'x'; INSERT INTO qb_reviews (qb_id, review_start_date) VALUES (2, '9999-99-99 99:99:99'), (3, '0000-00-00 00:00:00'), (4, 'nineteen characters')"),
    Sql("truths that are none", "UPDATE qb_taxonomic_units SET uncertain_parent_ind = 7; UPDATE qb_vernaculars SET approved_ind = 'maybe'"),
    Sql("a ring of parents", "UPDATE qb_taxonomic_units SET parent_qb_id = CASE WHEN qb_id = (SELECT max(qb_id) FROM qb_taxonomic_units) THEN 1 ELSE qb_id + 1 END"),
    Sql("parents that are themselves", "UPDATE qb_taxonomic_units SET parent_qb_id = qb_id"),
    Sql("parents that are nowhere", "UPDATE qb_taxonomic_units SET parent_qb_id = 1000000 + qb_id"),
    SizedSql("deep parents", "INSERT INTO qb_taxonomic_units (qb_id, parent_qb_id, unit_name1, kingdom_id, rank_id, usage) SELECT 5000 + i, CASE WHEN i = 1 THEN 1 ELSE 4999 + i END, 'Aus', 5, 180, 'valid' FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {} * 10) SELECT i FROM n)"),
    Sql("synonyms of themselves", "DELETE FROM qb_synonym_links; INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) SELECT qb_id, qb_id FROM qb_taxonomic_units"),
    Sql("a ring of synonyms", "DELETE FROM qb_synonym_links; INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) SELECT qb_id, qb_id + 1 FROM qb_taxonomic_units; INSERT INTO qb_synonym_links (qb_id, qb_id_accepted) SELECT max(qb_id) + 1, 1 FROM qb_taxonomic_units"),
    SizedSql("links to nowhere", "INSERT INTO qb_reference_links (qb_id, qb_documentation_id_prefix, qb_documentation_id) SELECT 100000 + i, 'PUB', i FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {} * 10) SELECT i FROM n)"),
    SizedSql("different prefixes", "INSERT INTO qb_publications (publication_id_prefix, qb_publication_id) SELECT char(65 + i % 26, 65 + i / 26 % 26, 65 + i / 676 % 26), 100000 + i FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {} * 3) SELECT i FROM n)"),
    SizedSql("a journal of names that are gone", "INSERT INTO journal SELECT 100000 + i FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {} * 20) SELECT i FROM n)"),
    SizedSql("tombstones of no table", "INSERT INTO db_tombstone (table_name, pk1, pk2) SELECT 'x' || i, '''; --', x'00' FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) SELECT i FROM n)"),

    // Stored queries.
    Sql("stored queries of nothing", "UPDATE qln_queries SET sql = ''"),
    Sql("stored queries of Null", "UPDATE qln_queries SET sql = NULL, name = NULL"),
    Sql("stored queries of blobs", "UPDATE qln_queries SET sql = x'00', name = x'FF' || position"),
    Sql("stored queries that delete", "UPDATE qln_queries SET sql = 'DELETE * FROM qb_taxonomic_units'"),
    Sql("stored queries that attach", "UPDATE qln_queries SET sql = 'ATTACH ''/tmp/x'' AS x'"),
    Sql("stored queries that call themselves", "UPDATE qln_queries SET sql = 'SELECT * FROM [' || name || ']'"),
    Sql("stored queries that multiply", "UPDATE qln_queries SET sql = 'SELECT a.qb_id FROM qb_taxonomic_units a, qb_taxonomic_units b, qb_taxonomic_units c, qb_taxonomic_units d, qb_taxonomic_units e, qb_taxonomic_units f WHERE a.qb_id = -7'"),
    SizedSql("stored queries of many brackets", "UPDATE qln_queries SET sql = 'SELECT ' || printf('%.*c', {} * 10, '(') || '1'"),
    SizedSql("stored queries of megabytes", "UPDATE qln_queries SET sql = 'SELECT ' || printf('%.*c', {} * 10, 'a') || ' FROM journal' WHERE position < 5"),
    SizedSql("many stored queries", "INSERT INTO qln_queries (name, sql) SELECT 'q' || i, 'SELECT 1' FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {} * 10) SELECT i FROM n)"),
    Sql("stored queries of one name", "UPDATE qln_queries SET name = 'Get Animal Data'"),
};
// clang-format on

}  // namespace

std::span<const HostileKind> HostileDataSets() {
    return kDataSets;
}

}  // namespace quillon::campaign
