// HullMA - Hull moving average of the closes, drawn over the prices.
//
// A weighted moving average that follows the price with little lag:
//   raw  = 2 * WMA(P / 2) - WMA(P)
//   Hull = WMA(sqrt(P), raw)
// where WMA weighs the newest bar most. The first P + sqrt(P) - 2 bars stay 0, since the
// averages are not filled yet.

function init()
{
    HullMA.fullName = "Hull Moving Average";
    HullMA.createParameter("Period", 20);
    HullMA.createBuffer("HullMA");
    HullMA.setBufferColor("HullMA", "#FF66CC");
    HullMA.setBufferDrawStyle("HullMA", DrawStyle.LINE);
    // Only used when the average has a pane of its own; over the prices it follows them.
    HullMA.setAutoChangeMaxMin("HullMA");
}

function start()
{
    var period = Math.max(2, Math.round(HullMA.parameter("Period")));
    var half = Math.floor(period / 2);
    var root = Math.max(1, Math.floor(Math.sqrt(period)));
    HullMA.label = "HullMA(" + period + ")";

    var closes = Shared.close();
    var fast = HullMA.wma(half, closes);
    var slow = HullMA.wma(period, closes);

    var n = Shared.numberOfQuotes();
    var raw = new Array(n);
    for (var i = 0; i < n; ++i)
        raw[i] = i >= period - 1 ? 2 * fast[i] - slow[i] : 0;

    var hull = HullMA.wma(root, raw);
    // The short average starts on the first full value of raw, not on its zeros.
    for (var k = 0; k < n && k < period + root - 2; ++k)
        hull[k] = 0;
    HullMA.setBufferData("HullMA", hull);
}
