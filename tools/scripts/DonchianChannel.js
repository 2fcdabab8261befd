// DonchianChannel - the highest high and the lowest low of the last Period bars, and the
// line half way between them.
//
// A close through the upper or lower band is a new Period-bar high or low. The current
// bar is part of its own window; the first Period - 1 bars stay 0.

function init()
{
    DonchianChannel.fullName = "Donchian Channel";
    DonchianChannel.createParameter("Period", 20);
    DonchianChannel.createBuffer("Upper");
    DonchianChannel.createBuffer("Middle");
    DonchianChannel.createBuffer("Lower");
    DonchianChannel.setBufferColor("Upper", "#00CED1");
    DonchianChannel.setBufferColor("Middle", "#A9A9A9");
    DonchianChannel.setBufferColor("Lower", "#00CED1");
    DonchianChannel.setAutoChangeMaxMin("Upper", "Lower");
}

function start()
{
    var period = Math.max(1, Math.round(DonchianChannel.parameter("Period")));
    DonchianChannel.label = "Donchian(" + period + ")";

    var n = Shared.numberOfQuotes();
    var highs = Shared.high();
    var lows = Shared.low();
    var upper = new Array(n);
    var middle = new Array(n);
    var lower = new Array(n);
    for (var i = 0; i < n; ++i) {
        if (i < period - 1) {
            upper[i] = middle[i] = lower[i] = 0;
            continue;
        }
        var highest = highs[i];
        var lowest = lows[i];
        for (var k = i - period + 1; k < i; ++k) {
            if (highs[k] > highest)
                highest = highs[k];
            if (lows[k] < lowest)
                lowest = lows[k];
        }
        upper[i] = highest;
        lower[i] = lowest;
        middle[i] = (highest + lowest) / 2;
    }
    DonchianChannel.setBufferData("Upper", upper);
    DonchianChannel.setBufferData("Middle", middle);
    DonchianChannel.setBufferData("Lower", lower);
}
