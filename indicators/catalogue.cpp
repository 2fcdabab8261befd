#include "catalogue.h"

#include "indicatorlayer.h"
#include "indicators/compute/averages.h"
#include "indicators/compute/house.h"
#include "indicators/compute/oscillators.h"
#include "indicators/compute/williams.h"
#include "rsiindicator.h"

#include <algorithm>

namespace OrdaneView {

namespace {
using namespace Indicators;
using P = IndicatorEntry::Param;
using B = IndicatorEntry::Buffer;
constexpr DrawStyle H = HISTOGRAM;

const std::vector<P> kAlligatorParams = {{"Jaws Period", 13}, {"Teeth Period", 8},
                                         {"Lips Period", 5},  {"Jaws Shift", 8},
                                         {"Teeth Shift", 5},  {"Lips Shift", 3}};

// id, title, parameters, buffers, label, list position, computation
const std::vector<IndicatorEntry> kCatalogue = {
    {"Volume", nullptr, {}, {{"Volume", Qt::darkCyan, H}}, "Volume", 0, &computeVolume},
    {"RSI",
     "Relative Strength Index",
     {{"Period", 7}, {"LevelUp", 70}, {"LevelDown", 30}},
     {{"RSI", Qt::red}},
     "RSI(%1,%2,%3)",
     1,
     &computeRSI},
    {"AD", "Accumulation/Distribution", {}, {{"AD", Qt::yellow}}, "A/D", 10, &computeAD},
    {"DI",
     "Directional Index",
     {{"Period", 14}},
     {{"+DI", Qt::green}, {"-DI", Qt::red}},
     "+DI,-DI(%1)",
     37,
     &computeDI},
    {"ADX",
     "Average Directional Movement",
     {{"Period", 14}},
     {{"ADX", Qt::white}, {"+DI", Qt::green}, {"-DI", Qt::red}},
     "ADX(%1)",
     38,
     &computeADX},
    {"Impuls",
     "Impuls System",
     {{"MACD_Fast", 14}, {"MACD_Slow", 32}, {"MACD_Signal", 9}, {"EMA_Period", 26}},
     {{"Impuls", Qt::white, H}, {"ImpulsD", Qt::white}},
     "Impuls(%1)",
     33,
     &computeImpuls},
    {"ATR",
     "Average True Range",
     {{"Period", 14}},
     {{"ATR", Qt::green}},
     "ATR(%1)",
     14,
     &computeATR},
    {"EMA",
     "Exponential Moving Average",
     {{"Period", 32}},
     {{"EMA", Qt::red}},
     "EMA(%1)",
     2,
     &computeEMA},
    {"WMA",
     "Weighted Moving Average",
     {{"Period", 32}},
     {{"WMA", Qt::red}},
     "WMA(%1)",
     3,
     &computeWMA},
    {"SMA",
     "Simple Moving Average",
     {{"Period", 32}},
     {{"SMA", Qt::green}},
     "SMA(%1)",
     4,
     &computeSMA},
    {"SMMA",
     "Smoothed Moving Average",
     {{"Period", 32}},
     {{"SMMA", Qt::red}},
     "SMMA(%1)",
     5,
     &computeSMMA},
    {"Median", nullptr, {{"Period", 32}}, {{"Median", Qt::red}}, "Median(%1)", 6, &computeMedian},
    {"MACD",
     "Moving Average Convergence/Divergence",
     {{"FastEMA", 12}, {"SlowEMA", 26}, {"Signal", 9}},
     {{"MACD", Qt::blue}, {"SMA", Qt::red}},
     "MACD(%1,%2,%3)",
     7,
     &computeMACD},
    {"FRC", "Force Index", {{"Period", 13}}, {{"FRC", Qt::magenta}}, "FRC(%1)", 8, &computeFRC},
    {"OBV", "On Balance Volume", {}, {{"OBV", Qt::cyan}}, "OBV", 11, &computeOBV},
    {"ROC",
     "Price Rate of Change",
     {{"Period", 12}},
     {{"ROC", Qt::yellow}},
     "ROC(%1)",
     12,
     &computeROC},
    {"VROC",
     "Volume Rate of Change",
     {{"Period", 25}},
     {{"VROC", Qt::yellow}},
     "VROC(%1)",
     13,
     &computeVROC},
    {"CHO",
     "Chaikin Oscillator",
     {{"Period1", 3}, {"Period2", 10}},
     {{"CHO", Qt::magenta}},
     "CHO(%1,%2)",
     16,
     &computeCHO},
    {"CHV",
     "Chaikin Volatility",
     {{"Period", 10}},
     {{"CHV", Qt::yellow}},
     "CHV(%1)",
     17,
     &computeCHV},
    {"CCI",
     "Commodity Channel Index",
     {{"Period", 14}, {"LevelUp", 100}, {"LevelDown", -100}},
     {{"CCI", Qt::yellow}},
     "CCI(%1,%2,%3)",
     18,
     &computeCCI},
    {"MedianPrice",
     "Median Price",
     {},
     {{"MedianPrice", Qt::red}},
     "MedianPrice",
     19,
     &computeMedianPrice},
    {"AO", "Awesome Oscillator", {}, {{"AO", Qt::green, H}}, "AO", 20, &computeAO},
    {"AC", "Acceleration/Deceleration", {}, {{"AC", Qt::green, H}}, "AC", 21, &computeAC},
    {"Bears",
     "Bears Power",
     {{"Period", 13}},
     {{"Bears", Qt::red}},
     "Bears(%1)",
     22,
     &computeBears},
    {"Bulls",
     "Bulls Power",
     {{"Period", 14}},
     {{"Bulls", Qt::green}},
     "Bulls(%1)",
     23,
     &computeBulls},
    {"DeMarker",
     nullptr,
     {{"Period", 14}, {"LevelUp", 0.7f}, {"LevelDown", 0.3f}},
     {{"DeMarker", Qt::red}},
     "DeMarker(%1)",
     24,
     &computeDeMarker},
    {"Momentum",
     nullptr,
     {{"Period", 14}},
     {{"Momentum", Qt::blue}},
     "Momentum(%1)",
     15,
     &computeMomentum},
    {"OsMA",
     "Oscillator Moving Average",
     {{"FastEMA", 12}, {"SlowEMA", 26}, {"Signal", 9}},
     {{"OsMA", Qt::cyan}},
     "OsMA(%1,%2,%3)",
     9,
     &computeOsMA},
    {"MFaI", "Money Facilitation Index", {}, {{"MFaI", Qt::cyan}}, "MFaI", 25, &computeMFaI},
    {"StdDev",
     "Standard Deviation",
     {{"Period", 20}},
     {{"StdDev", Qt::red}},
     "StdDev(%1)",
     26,
     &computeStdDev},
    {"WilliamsPR",
     "Williams %R",
     {{"Period", 14}, {"LevelUp", -20}, {"LevelDown", -80}},
     {{"WilliamsPR", Qt::red}},
     "Williams %R(%1,%2,%3)",
     27,
     &computeWilliamsPR},
    {"RVI",
     "Relative Vigor Index",
     {{"Period", 10}},
     {{"RVI", Qt::green}, {"RVISignal", Qt::red}},
     "RVI(%1)",
     28,
     &computeRVI},
    {"MFI",
     "Money Flow Index",
     {{"Period", 14}, {"LevelUp", 80}, {"LevelDown", 20}},
     {{"MFI", Qt::cyan}},
     "MFI(%1,%2,%3)",
     29,
     &computeMFI},
    {"Stochastic",
     "Stochastic Oscillator",
     {{"KPeriod", 14}, {"DPeriod", 3}, {"Slowing", 3}, {"LevelUp", 80}, {"LevelDown", 20}},
     {{"K", Qt::blue}, {"D", Qt::red}},
     "Stochastic(%1,%2,%3,%4,%5)",
     30,
     &computeStochastic},
    {"Alligator",
     nullptr,
     kAlligatorParams,
     {{"Jaws", Qt::blue}, {"Teeth", Qt::red}, {"Lips", Qt::green}},
     nullptr,
     -1,
     &computeAlligator},
    {"HCVolatility",
     "Halcyra Volatility",
     {{"EMAPeriod", 26}, {"MidEMAPeriod", 10}},
     {{"HCVolatilityHigh", Qt::green},
      {"HCVolatilityLow", Qt::red},
      {"HCVolatilityMid", Qt::yellow},
      {"HCVolatilityDifference", Qt::gray}},
     nullptr,
     31,
     &computeHCVolatility},
    {"Fractals", nullptr, {}, {{"Fractals", Qt::yellow, POINTS}}, nullptr, -1, &computeFractals},
    {"Gator",
     "Gator Oscillator",
     kAlligatorParams,
     {{"JawsTeeth", Qt::green, H}, {"LipsTeeth", Qt::red, H}},
     nullptr,
     -1,
     &computeGator},
    {"WilliamsBars",
     "Williams Bull & Bear Bars",
     {{"Bars Number", 3}},
     {},
     nullptr,
     -1,
     &computeWilliamsBars},
    {"Envelopes",
     nullptr,
     {{"Period", 14}, {"Shift", 0}, {"Deviation", 8.5f}},
     {{"EnvelopesUpper", Qt::blue}, {"EnvelopesLower", Qt::red}},
     nullptr,
     34,
     &computeEnvelopes},
    {"BollingerBands",
     "Bollinger Bands",
     // The shipped template's "Devitation" is a slip of the saved format that no indicator
     // reads; keep both spellings as they are.
     {{"Period", 20}, {"Deviation", 2}},
     {{"BollingerBandsMiddle", Qt::yellow},
      {"BollingerBandsUpper", Qt::cyan},
      {"BollingerBandsLower", Qt::cyan}},
     nullptr,
     35,
     &computeBollingerBands},
    {"DPO",
     "Detrended Price Oscillator",
     {{"Period", 20}},
     {{"DPO", Qt::green}},
     nullptr,
     36,
     &computeDPO},
    {"HCDrevik",
     "Halcyra Drevik",
     {},
     {{"HCDrevikPlus", Qt::green}, {"HCDrevikMinus", Qt::red}},
     nullptr,
     -1,
     &computeHCDrevik},
    {"HCDrevikPR",
     "Halcyra Drevik %",
     {},
     {{"HCDrevikPRPlus", Qt::green}, {"HCDrevikPRMinus", Qt::red}},
     nullptr,
     -1,
     &computeHCDrevikPR},
    {"HCPriceChange",
     "Halcyra Price Change",
     {{"EMAPeriod", 1}},
     {{"HCPriceChangeHigh", Qt::green, H}, {"HCPriceChangeLow", Qt::red}},
     nullptr,
     32,
     &computeHCPriceChange},
    {"HCPriceChangeO",
     "Halcyra Price Change Oscillator",
     {{"EMAPeriod", 1}},
     {{"HCPriceChange", Qt::green}},
     nullptr,
     -1,
     &computeHCPriceChangeO},
    {"HCPriceChangeBulls",
     "Halcyra Price Change Bulls Only",
     {{"EMAPeriod", 1}},
     {{"HCPriceChangeBullsHigh", Qt::green, H}, {"HCPriceChangeBullsLow", Qt::red}},
     nullptr,
     -1,
     &computeHCPriceChangeBulls},
    {"Consolidation",
     nullptr,
     {{"Interval", 4}, {"Typ", 0}},
     {{"Consolidation", Qt::yellow, H}, {"ConsolidationA", Qt::cyan}},
     nullptr,
     -1,
     &computeConsolidation},
};
} // namespace

const std::vector<IndicatorEntry> &catalogue()
{
    return kCatalogue;
}

const IndicatorEntry *findIndicator(const QString &id)
{
    for (const IndicatorEntry &entry : kCatalogue)
        if (id == QLatin1String(entry.id))
            return &entry;
    return nullptr;
}

QString indicatorTitle(const QString &id)
{
    const IndicatorEntry *entry = findIndicator(id);
    return entry && entry->title ? QLatin1String(entry->title) : id;
}

QStringList listedIndicators()
{
    std::vector<const IndicatorEntry *> listed;
    for (const IndicatorEntry &entry : kCatalogue)
        if (entry.listed())
            listed.push_back(&entry);
    std::sort(listed.begin(), listed.end(), [](const IndicatorEntry *a, const IndicatorEntry *b) {
        return a->listOrder < b->listOrder;
    });
    QStringList ids;
    for (const IndicatorEntry *entry : listed)
        ids << QLatin1String(entry->id);
    return ids;
}

IndicatorLayer *createBuiltinIndicator(const QString &id, const OrdaneData::ReaderH &reader,
                                       ViewCanvas *view)
{
    const IndicatorEntry *entry = findIndicator(id);
    if (!entry)
        return nullptr;
    // The RSI carries its trading rule and the search of its parameters.
    auto *layer = id == QLatin1String("RSI") ? new RsiIndicator(*entry, view)
                                             : new BuiltinIndicator(*entry, view);
    layer->setReader(reader);
    return layer;
}

} // namespace OrdaneView
