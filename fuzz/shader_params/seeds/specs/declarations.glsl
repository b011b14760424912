#pragma parameter GAMMA "Gamma" 2.2 1.0 3.0 0.05
	#pragma parameter A "B" 0.5 1.0 0.0 -1 // note
#pragmaparameter s "x" 1e3 -2 +3 .5