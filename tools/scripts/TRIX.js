// TRIX - the rate of change of a triple-smoothed EMA, in per cent, with a signal line.
//
//   EMA3   = EMA(Period) of EMA(Period) of EMA(Period) of the closes
//   TRIX   = 100 * (EMA3 - previous EMA3) / previous EMA3
//   Signal = EMA(Signal) of TRIX
// The triple smoothing filters out the short swings; TRIX crossing 0 or its signal line
// marks a turn of the trend. The first bar is 0.

function init()
{
    TRIX.fullName = "Triple Exponential Average";
    TRIX.createParameter("Period", 15);
    TRIX.createParameter("Signal", 9);
    TRIX.createBuffer("TRIX");
    TRIX.setBufferColor("TRIX", "#00FF7F");
    TRIX.createBuffer("Signal");
    TRIX.setBufferColor("Signal", "#FF6347");
    TRIX.setAutoChangeMaxMin("TRIX", "Signal");
    TRIX.removeAllLevels();
    TRIX.addLevel(0, "#808080");
}

function start()
{
    var period = Math.max(1, Math.round(TRIX.parameter("Period")));
    var signalPeriod = Math.max(1, Math.round(TRIX.parameter("Signal")));
    TRIX.label = "TRIX(" + period + "," + signalPeriod + ")";

    var smooth = TRIX.ema(period, TRIX.ema(period, TRIX.ema(period, Shared.close())));
    var n = Shared.numberOfQuotes();
    var trix = new Array(n);
    for (var i = 0; i < n; ++i)
        trix[i] = i > 0 && smooth[i - 1] != 0 ? 100 * (smooth[i] - smooth[i - 1]) / smooth[i - 1] : 0;

    TRIX.setBufferData("TRIX", trix);
    TRIX.setBufferData("Signal", TRIX.ema(signalPeriod, trix));
}
