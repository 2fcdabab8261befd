// KeltnerChannel - a band around the trend that widens and narrows with the volatility.
//
//   Middle = EMA(Period) of the typical price (high + low + close) / 3
//   Upper  = Middle + Multiplier * ATR
//   Lower  = Middle - Multiplier * ATR
// ATR is the average true range over "ATR Period" bars, smoothed the way Wilder smoothed it
// (smma). The true range of a bar is the largest of high - low, |high - previous close| and
// |low - previous close|. The bands stay 0 until the ATR has its first full period.

function init()
{
    KeltnerChannel.fullName = "Keltner Channel";
    KeltnerChannel.createParameter("Period", 20);
    KeltnerChannel.createParameter("ATR Period", 10);
    KeltnerChannel.createParameter("Multiplier", 2);

    KeltnerChannel.createBuffer("Upper");
    KeltnerChannel.createBuffer("Middle");
    KeltnerChannel.createBuffer("Lower");
    KeltnerChannel.setBufferColor("Upper", "#1E90FF");
    KeltnerChannel.setBufferColor("Middle", "#FFD700");
    KeltnerChannel.setBufferColor("Lower", "#1E90FF");
    // In a pane of its own the range takes in both bands.
    KeltnerChannel.setAutoChangeMaxMin("Upper", "Lower");
}

// The true range of every bar; the first bar has no previous close.
function trueRanges(n)
{
    var ranges = new Array(n);
    for (var i = 0; i < n; ++i) {
        var high = Shared.high(i);
        var low = Shared.low(i);
        var range = high - low;
        if (i > 0) {
            var previous = Shared.close(i - 1);
            range = Math.max(range, Math.abs(high - previous), Math.abs(low - previous));
        }
        ranges[i] = range;
    }
    return ranges;
}

function start()
{
    var period = Math.max(1, Math.round(KeltnerChannel.parameter("Period")));
    var atrPeriod = Math.max(1, Math.round(KeltnerChannel.parameter("ATR Period")));
    var multiplier = KeltnerChannel.parameter("Multiplier");
    KeltnerChannel.label = "Keltner(" + period + "," + atrPeriod + "," + multiplier + ")";

    var n = Shared.numberOfQuotes();
    var middle = KeltnerChannel.ema(period, Shared.typical());
    var atr = KeltnerChannel.smma(atrPeriod, trueRanges(n));

    var upper = new Array(n);
    var lower = new Array(n);
    for (var i = 0; i < n; ++i) {
        var ready = i >= atrPeriod - 1 && atr[i] > 0;
        upper[i] = ready ? middle[i] + multiplier * atr[i] : 0;
        lower[i] = ready ? middle[i] - multiplier * atr[i] : 0;
    }
    KeltnerChannel.setBufferData("Upper", upper);
    KeltnerChannel.setBufferData("Middle", middle);
    KeltnerChannel.setBufferData("Lower", lower);
}
