#include "update/keyTables.h"

#include <cstddef>

namespace {

constexpr KeyMapping kRenamedKeys[] = {
    {"*NEWP559", "*5XNUT01"}, {"*NEWP441", "*5XAL1DR"}, {"*NEWP442", "*5XAL2DR"},
    {"*NEWP443", "*5XAL3DR"}, {"*NEWP444", "*5XAL1NP"}, {"*NEWP445", "*5XAL2NP"},
    {"*NEWP446", "*5XAL3NP"},
};

// Two old keys become "MFG_RAPID_FEED", that of milling and that of turning. A file with both keeps
// both, in its own order; that is wanted.
constexpr KeyMapping kMachineKeys[] = {
    {"*PPNAMEN", "MFG_PP_NAME"},      {"*VORSMAX", "MFG_MAX_FEEDRATE"},
    {"*DREH040", "MFG_MAX_FEDR_DR"},  {"*VORSMIN", "MFG_MIN_FEEDRATE"},
    {"*DREH041", "MFG_MIN_FEDR_DR"},  {"*EILVORS", "MFG_RAPID_FEED"},
    {"*DREH043", "MFG_RAPID_FEED"},   {"*FDINVMX", "N3C_FEED_INV_MAX"},
    {"*FDINVMN", "N3C_FEED_INV_MIN"}, {"*WKZZEIT", "MFG_TL_CHNG_TIME"},
    {"*GOHOMEX", "MFG_X_HOME_POS"},   {"*GOHOMEY", "MFG_Y_HOME_POS"},
    {"*GOHOMEZ", "MFG_Z_HOME_POS"},   {"*WZMXMAX", "MFG_X_MAX_LIM"},
    {"*WZMYMAX", "MFG_Y_MAX_LIM"},    {"*WZMZMAX", "MFG_Z_MAX_LIM"},
    {"*WZMXMIN", "MFG_X_MIN_LIM"},    {"*WZMYMIN", "MFG_Y_MIN_LIM"},
    {"*WZMZMIN", "MFG_Z_MIN_LIM"},    {"*TOLERAN", "MFG_MIN_DISC"},
};

constexpr KeyMapping kAddressKeys[] = {
    {"*MITTANF", "COMMENT_START"},
    {"*MITTEND", "COMMENT_END"},
    {"*DEZKOMM", "DECIMAL_POINT_REPRESENTATION"},
};

// The first kStringKeys rows stand in the string section and in the integer section.
constexpr std::size_t kStringKeys = 39;
constexpr KeyMapping kIntegerKeys[] = {
    {"*ANFCHAR", "STRT_PROC_CHARACTER"},
    {"*ENDCHAR", "END_PROC_CHARACTER"},
    {"*SATZNIN", "REC_NUM_INCR"},
    {"*SATZMAX", "REC_NUM_MAX"},
    {"*SATZNAN", "REC_NUM_FIRST"},
    {"*KREISMI", "CIRCLE_CENTER_ABS"},
    {"*WZGLTVA", "TL_SEL_AFTER_LAST"},
    {"*LKOMPAL", "LGTH_CMP_OUT"},
    {"*KONTRRG", "CONTOUR_RECALCULATION"},
    {"*KONTRK1", "CIRCULAR_CONTOUR_APPROACH"},
    {"*KONTRK2", "CIRCULAR_CONTOUR_RETRACT"},
    {"*WZGVAWA", "SELCTOOL_AUTOMATIC"},
    {"*INSERTH", "INSERT_HANDLING"},
    {"*MORSPI1", "PART_BLA_SPINDLE_NB"},
    {"*KOMLANG", "MAX_COM_LENGTH"},
    {"*WKZLVER", "TL_LEN_COMP_CALC"},
    {"*KOMBEHA", "COMM_OUTPUT_HANDLING"},
    {"*NCRECFM", "RECORD_FORMAT_FIXED"},
    {"*ORIMVER", "ORIG_MAN_COMPUTATION"},
    {"*LEERKOM", "COMM_BLANK_LINES"},
    {"*ORIMAUT", "AUTO_ORIG_MAN"},
    {"*FRSTFED", "SUPRESS_FIRST_FEED"},
    {"*SLTBZUS", "POS_SEL_BLOCK"},
    {"*5XAXOP2", "5X_MIN_ANG_DIFF_AXIS"},
    {"*CYCANEN", "CYCLES_AT_END"},
    {"*NOBLANK", "NOBLANK"},
    {"*LTG0VLT", "LOADTL_RAPID_HANDLING"},
    {"*LTG0VRT", "ROTABL_RAPID_HANDLING"},
    {"*FROMSKP", "SKIP_FROM"},
    {"*KUGELFR", "CALC_SPHER_RAD"},
    {"*AUTMODE", "AUTO_ROTABL"},
    {"*AUTROTB", "AUTO_MODE"},
    {"*KORREGJ", "TL_CORR_DEFAULT"},
    {"*START01", "START_TURN"},
    {"*START02", "START_FEED_UNIT"},
    {"*START03", "START_COORD_TYPE"},
    {"*START04", "START_SPINDL_UNIT"},
    {"*ZXLSTAN", "ZXLPLANE_STD_MILL"},
    {"*XYZINFK", "PLANE_FACT_INCR"},
    // From here on integers only.
    {"*SATZNR2", "RECORD_NB_OUTPUT"},
    {"*SYNESWO", "MT_SYNC_ONE_POS"},
    {"*MORTURS", "MT_POS_SYNC"},
    {"*MORTURC", "MT_POS_CYCLE"},
    {"*MORTURU", "MT_POS_SUBPR"},
    {"*MORTURP", "MT_POS_PREND"},
    {"*CIRSPLT", "SPLIT_CIRCLE"},
    {"*FEEDHLD", "KEEP_FEED"},
    {"*RKOMPWO", "RAD_CORR_REG_POS"},
    {"*FEDWIED", "FEED_REPEAT"},
    {"*KONTLER", "CONTOUR_RECALC_LAST"},
    {"*KONPROG", "CONTOUR_NOSE_POINT_CALC"},
    {"*GAUGVER", "GAUGE_LENGTH_CALC_LATHE"},
    {"*KONTCHD", "CUTCOM_ON_OFF_HANDLING"},
    {"*KONTRRL", "CONTOUR_RECALCULATION_LATHE"},
    {"*KONTK1L", "CIRCULAR_CONTOUR_APPROACH_LATHE"},
    {"*KONTK2L", "CIRCULAR_CONTOUR_RETRACT_LATHE"},
    {"*KONTLEL", "CONTOUR_RECALC_LAST_LATHE"},
    {"*POLAR08", "POLAR_MODE_ANGLE_TYPE"},
    {"*5XAUSGL", "HAS_RTCP"},
    {"*5XALAOS", "5X_TIP_OR_PIVOTPOINT"},
    {"*5XAFDAG", "5X_FEED_HANDLING"},
    {"*5XAZWPK", "5X_INTERMED_POINTS"},
    {"*5XAL1AA", "5X_TYPE_1ST_AXIS"},
    {"*5XAL2AA", "5X_TYPE_2ND_AXIS"},
    {"*5XAL3AA", "5X_TYPE_3RD_AXIS"},
    {"*PROTACL", "PROTOCOL_APT_NC"},
    {"*FAKTOOL", "APT_NC_FACTOR_TOOLNO"},
    {"*FAKSWIT", "APT_NC_FACTOR_SWITCH"},
    {"*FAKORIG", "APT_NC_FACTOR_ORIGIN"},
    {"*TLAXSUP", "TLAXIS_SUPPORT"},
    {"*POSUPRO", "SUB_PROG_POS"},
    {"*5XAXOPT", "5X_MIN_ANG_DIFF"},
    {"*DREHRIC", "WAY_OF_ROT_ON_NEG_PLANE"},
    {"*5AXSTAR", "5X_STARTING_ANGLES"},
    {"*CUTCOMH", "CUTCOM_OUTPUT_HANDLING"},
    {"*NCRECLG", "NC_DATA_REC_LENGTH"},
    {"*ZUSFASS", "JOIN_PARALLEL_MOTIONS"},
    {"*SETPLSP", "5X_SETPLN_RTCP"},
    {"*5XAUSG2", "HAS_RTCP_TABLE"},
};

// "*5XAFDAG" is a row of the integers, too, and converted as both; that is wanted.
constexpr KeyMapping kRealKeys[] = {
    {"*TOLERAN", "LINEAR_TOLERANCE"},
    {"*WARTEFK", "DWELL_TIME_FACTOR"},
    {"*DREH053", "SPINDLE_POS_FACTOR_LATHE"},
    {"*DREH054", "SPINDLE_POS_MIN_LATHE"},
    {"*DREH055", "SPINDLE_POS_MAX_LATHE"},
    {"*FEDFKA1", "FEEDRAT_FACTOR_TIME"},
    {"*FEDFKL1", "FEEDRAT_FACTOR_TIME_LATHE"},
    {"*FEDFKL2", "FEEDRAT_FACTOR_UNIT_LATHE"},
    {"*FAKMSP1", "SPINDLE_FACTOR"},
    {"*FAKLSP1", "SPINDLE_FACTOR_LATHE"},
    {"*FAKLSP2", "CUTTING_SPEED_FACTOR_LATHE"},
    {"*5XAFDAG", "5X_FEED_HANDLING"},
    {"*5XAZWPF", "5X_INTERM_TOL"},
    {"*GENFAKT", "APT_NC_FACTOR_GENERAL"},
    {"*5XNUT01", "NUTATOR_HEAD_ANGLE"},
    {"*POLAR09", "POLAR_MODE_CIR_TOL"},
    {"*POLAR10", "POLAR_MODE_LIN_TOL"},
    {"*INVFEDF", "5X_FACTOR_FEED_INV"},
    {"*5XWIDE1", "5X_ANG_DIFF_1ST"},
    {"*5XWIDE2", "5X_ANG_DIFF_2ND"},
    {"*5XWIDE3", "5X_ANG_DIFF_3RD"},
};

} // namespace

std::span<const KeyMapping> renamedKeys() noexcept { return kRenamedKeys; }
std::span<const KeyMapping> machineKeys() noexcept { return kMachineKeys; }
std::span<const KeyMapping> addressKeys() noexcept { return kAddressKeys; }
std::span<const KeyMapping> stringKeys() noexcept {
    return std::span(kIntegerKeys).first<kStringKeys>();
}
std::span<const KeyMapping> integerKeys() noexcept { return kIntegerKeys; }
std::span<const KeyMapping> realKeys() noexcept { return kRealKeys; }
